import QtQuick
import Ambrel.Kit

// Placeholders for the rows during a scan.
Item {
    id: root

    component Bar: Rectangle {
        height: Scaled.px(10)
        radius: height / 2
        color: Theme.card
    }

    readonly property int rowHeight: Scaled.px(48)

    Accessible.ignored: true

    Repeater {
        // Seven at most, and as many as there is room for.
        model: Math.max(0, Math.min(7, Math.floor((root.height - Theme.space2) / root.rowHeight)))

        Item {
            id: row

            required property int index

            y: Theme.space2 + index * root.rowHeight
            width: root.width
            height: root.rowHeight

            Bar {
                x: Scaled.px(48)
                anchors.verticalCenter: parent.verticalCenter
                width: Scaled.px(18)
                height: width
                radius: Theme.radiusCheck
            }
            Bar {
                x: Scaled.px(78)
                y: Scaled.px(11)
                width: Math.min(Scaled.px([160, 120, 180, 140, 170, 110, 150][row.index]), size.x - Theme.space3 - x)
            }
            Bar {
                x: Scaled.px(78)
                y: Scaled.px(28)
                width: Math.min(Scaled.px([220, 190, 150, 210, 180, 200, 160][row.index]), size.x - Theme.space3 - x)
                height: Scaled.px(8)
            }
            Bar {
                id: size

                x: root.width - width - Scaled.px(54)
                anchors.verticalCenter: parent.verticalCenter
                width: Scaled.px(48)
            }
        }
    }
}
