import QtQuick
import Ambrel.Kit

// Still bars in the place of rows to come.
Item {
    id: root

    Accessible.ignored: true

    Repeater {
        model: 7

        Item {
            id: row

            required property int index

            y: 8 + index * 48
            width: root.width
            height: 48

            Rectangle {
                x: 48
                anchors.verticalCenter: parent.verticalCenter
                width: 18
                height: 18
                radius: Theme.radiusCheck
                color: Theme.card
            }
            Rectangle {
                x: 78
                y: 11
                width: [160, 120, 180, 140, 170, 110, 150][row.index]
                height: 10
                radius: 5
                color: Theme.card
            }
            Rectangle {
                x: 78
                y: 28
                width: [220, 190, 150, 210, 180, 200, 160][row.index]
                height: 8
                radius: 4
                color: Theme.card
            }
            Rectangle {
                anchors.right: parent.right
                anchors.rightMargin: 54
                anchors.verticalCenter: parent.verticalCenter
                width: 48
                height: 10
                radius: 5
                color: Theme.card
            }
        }
    }
}
