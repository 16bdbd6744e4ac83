import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// The step of a scan, its progress in words and as a bar.
Column {
    id: root

    required property diskProgress progress
    property bool hasShare: true

    spacing: Theme.space2
    Accessible.role: Accessible.ProgressBar
    Accessible.name: progress.title + ", " + progress.detail

    Item {
        width: parent.width
        height: heading.height

        Label {
            id: heading

            text: root.progress.title
            role: Theme.headline
            Accessible.ignored: true
        }
        TipLabel {
            anchors {
                left: heading.right
                leftMargin: Theme.space3
                right: share.left
                rightMargin: Theme.space3
                baseline: heading.baseline
            }
            text: root.progress.detail
            color: Theme.ink2
            Accessible.ignored: true
        }
        TipLabel {
            id: share

            anchors.right: parent.right
            anchors.baseline: heading.baseline
            text: root.progress.figure
            role: Theme.rowTitle
            Accessible.ignored: true
        }
    }
    MeterBar {
        width: parent.width
        height: 6
        visible: root.hasShare
        value: root.progress.percent
        color: Theme.teal.mark
        trackColor: Theme.track
        duration: 0
    }
}
