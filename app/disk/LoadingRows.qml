import QtQuick
import Ambrel.Kit

// Placeholders for the rows during a scan.
Item {
    id: root

    component Bar: Rectangle {
        height: 10
        radius: height / 2
        color: Theme.card
    }

    Accessible.ignored: true

    Repeater {
        model: 7

        Item {
            id: row

            required property int index

            y: 8 + index * 48
            width: root.width
            height: 48

            Bar {
                x: 48
                anchors.verticalCenter: parent.verticalCenter
                width: 18
                height: 18
                radius: Theme.radiusCheck
            }
            Bar {
                x: 78
                y: 11
                width: [160, 120, 180, 140, 170, 110, 150][row.index]
            }
            Bar {
                x: 78
                y: 28
                width: [220, 190, 150, 210, 180, 200, 160][row.index]
                height: 8
            }
            Bar {
                x: root.width - width - 54
                anchors.verticalCenter: parent.verticalCenter
                width: 48
            }
        }
    }
}
