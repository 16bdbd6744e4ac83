import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit

// The first files by name.
Item {
    id: root

    required property clipFace face

    Column {
        x: Theme.space3
        width: parent.width - 2 * Theme.space3
        spacing: Theme.space2

        Repeater {
            model: root.face.files

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
            visible: root.face.moreFiles !== ""
            width: parent.width
            text: root.face.moreFiles
            role: Theme.subLine
            color: Theme.ink2
            Accessible.ignored: true
        }
    }
}
