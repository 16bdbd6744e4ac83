import QtQuick
import Ambrel.Kit

// The first files by name.
Item {
    id: root

    property var files: []
    property string more

    Column {
        x: Theme.space3
        width: parent.width - 2 * Theme.space3
        spacing: Theme.space2

        Repeater {
            model: root.files

            Item {
                id: row

                required property var modelData

                width: parent.width
                height: Math.max(16, Theme.small.line)

                Symbol {
                    id: icon

                    name: row.modelData.symbol
                    size: 16
                    color: Theme.ink2
                    anchors.verticalCenter: parent.verticalCenter
                }
                TipLabel {
                    anchors {
                        left: icon.right
                        leftMargin: 6
                        right: parent.right
                        verticalCenter: parent.verticalCenter
                    }
                    text: row.modelData.name
                    role: Theme.small
                    elide: Text.ElideMiddle
                    Accessible.ignored: true
                }
            }
        }
        Label {
            visible: root.more !== ""
            width: parent.width
            text: root.more
            role: Theme.subLine
            color: Theme.ink2
            Accessible.ignored: true
        }
    }
}
