import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// What a scan is doing, how much of it is done in words, and the same as a bar.
Column {
    id: root

    required property DiskProgress progress
    property bool hasShare: true

    spacing: Theme.space2
    Accessible.role: Accessible.ProgressBar
    Accessible.name: progress.title + ", " + progress.detail

    Item {
        width: parent.width
        height: title.height

        Label {
            id: title

            text: root.progress.title
            role: Theme.headline
            Accessible.ignored: true
        }
        TipLabel {
            anchors {
                left: title.right
                leftMargin: Theme.space3
                right: figure.left
                rightMargin: Theme.space3
                baseline: title.baseline
            }
            text: root.progress.detail
            color: Theme.ink2
            Accessible.ignored: true
        }
        TipLabel {
            id: figure

            anchors.right: parent.right
            anchors.baseline: title.baseline
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
