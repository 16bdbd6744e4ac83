import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// What a scan is doing, how much of it is done in words, and the same as a bar.
Column {
    id: root

    property string title
    property string detail
    property string figure
    property real percent: 0
    property bool hasShare: true

    spacing: Theme.space2
    Accessible.role: Accessible.ProgressBar
    Accessible.name: title + ", " + detail

    Item {
        width: parent.width
        height: heading.height

        Label {
            id: heading

            text: root.title
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
            text: root.detail
            color: Theme.ink2
            Accessible.ignored: true
        }
        TipLabel {
            id: share

            anchors.right: parent.right
            anchors.baseline: heading.baseline
            text: root.figure
            role: Theme.rowTitle
            Accessible.ignored: true
        }
    }
    MeterBar {
        width: parent.width
        height: 6
        visible: root.hasShare
        value: root.percent
        color: Theme.teal.mark
        trackColor: Theme.track
        duration: 0
    }
}
