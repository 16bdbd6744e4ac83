import QtQuick
import Ambrel.Kit

// The sessions of a week as seven bars over the letters of their days.
Row {
    id: root

    required property var week
    property bool hasLetters: true

    spacing: 4

    Repeater {
        model: root.week

        Item {
            id: day

            required property var modelData

            width: (root.width - 6 * root.spacing) / 7
            height: root.height

            Rectangle {
                anchors.bottom: letter.visible ? letter.top : parent.bottom
                width: parent.width
                readonly property real room: parent.height - (letter.visible ? letter.height : 0)
                height: day.modelData.count > 0 ? Math.max(4, room * day.modelData.percent / 100) : 2
                radius: Math.min(2, height / 2)
                color: day.modelData.count === 0 ? Theme.track : day.modelData.isToday ? Theme.orange.mark : Theme.blue.mark
            }
            Label {
                id: letter

                visible: root.hasLetters
                width: parent.width
                text: day.modelData.day
                role: Theme.subLine
                color: day.modelData.isToday ? Theme.ink : Theme.ink2
                horizontalAlignment: Text.AlignHCenter
                anchors.bottom: parent.bottom
                Accessible.ignored: true
            }
        }
    }
}
