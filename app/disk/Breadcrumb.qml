import QtQuick
import Ambrel.Base
import Ambrel.Disk
import Ambrel.Kit

// The path to a folder; a click on a step goes there.
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
        id: line

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
                height: line.height
                isLast: index === steps.count - 1
                maximumWidth: line.width / Math.max(steps.count, 1) + 24
                onClicked: root.chosen(row.partId)
            }
        }
    }
}
