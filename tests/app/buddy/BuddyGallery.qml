import QtQuick
import Ambrel.Buddy
import Ambrel.Kit

// Every mood and every reaction, each at rest in a card of its own.
Rectangle {
    id: root

    readonly property var moods: ["idle", "asleep", "thinking", "happy", "error"]
    readonly property var reactions: ["celebrate", "wave", "jump", "spin", "dance", "nod", "shake", "stretch", "wink", "love", "startle", "peek", "sip", "typing", "highFive", "drink", "sneeze", "lookAround"]

    width: 968
    height: 708
    color: Theme.panel

    component Card: Rectangle {
        id: card

        required property string modelData
        property real size

        radius: Theme.radiusTile
        color: Theme.tile
        border.width: 1
        border.color: Theme.over(Theme.line, Theme.tile)

        BuddyFace {
            objectName: card.modelData
            pose: card.modelData
            size: card.size
            live: false
            anchors.horizontalCenter: parent.horizontalCenter
            y: (card.height - 28 - card.size) / 2
        }
        Label {
            anchors.horizontalCenter: parent.horizontalCenter
            y: parent.height - 28
            text: card.modelData
            color: Theme.ink2
        }
    }

    Row {
        x: 32
        y: 72
        spacing: 16

        Repeater {
            model: root.moods

            Card {
                width: 168
                height: 176
                size: 104
            }
        }
    }
    Grid {
        x: 32
        y: 264
        columns: 6
        columnSpacing: 18
        rowSpacing: 18

        Repeater {
            model: root.reactions

            Card {
                width: 136
                height: 124
                size: 72
            }
        }
    }
}
