import QtQuick
import Ambrel.Kit

// Four bars; the stronger the signal, the more of them are filled.
Row {
    id: root

    // 0 to 100, in quarters.
    property real percent: 0
    property color color: Theme.blue.mark

    height: 18
    spacing: 2

    Repeater {
        model: 4

        Rectangle {
            required property int index

            anchors.bottom: parent.bottom
            width: 4
            height: 6 + 4 * index
            radius: 1.5
            color: root.percent > index * 25 ? root.color : Theme.track
        }
    }
}
