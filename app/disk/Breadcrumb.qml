import QtQuick
import Ambrel.Base
import Ambrel.Disk
import Ambrel.Kit

// The way down to a folder; every step leads back to itself.
Item {
    id: root

    required property RowList parts

    signal chosen(string id)

    Symbol {
        id: icon

        anchors.verticalCenter: parent.verticalCenter
        name: "internaldrive"
        size: 18
        color: Theme.ink2
    }
    Row {
        id: row

        anchors {
            left: icon.right
            leftMargin: Theme.space2
            right: parent.right
        }
        height: parent.height

        Repeater {
            id: steps

            model: root.parts

            BreadcrumbStep {
                height: row.height
                isLast: index === steps.count - 1
                maximumWidth: row.width / Math.max(steps.count, 1) + 24
                onClicked: root.chosen(partId)
            }
        }
    }
}
