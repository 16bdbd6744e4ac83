import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit
import Ambrel.Shelf

// What could go, with how much that is. Each can be undone for a few seconds.
Menu {
    id: root

    required property ClipboardModel clipboard
    readonly property bool isCentred: false
    readonly property bool hangsLeft: true
    readonly property var choices: clipboard.cleanups()

    implicitWidth: 420
    function begin() {
        root.focusFirst();
    }

    Item {
        id: heading

        width: parent.width
        height: 30

        Label {
            x: 10
            anchors.verticalCenter: parent.verticalCenter
            text: root.choices.length > 0 ? qsTr("Remove") : qsTr("Nothing to remove")
            role: Theme.rowTitle
        }
        Label {
            anchors.right: parent.right
            anchors.rightMargin: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("Pinned items and collections stay")
            role: Theme.subLine
            color: Theme.ink2
        }
    }
    Grid {
        width: parent.width
        columns: 2

        Repeater {
            model: root.choices

            MenuRow {
                required property var modelData

                width: heading.width / 2
                text: modelData.title
                keys: modelData.count
                symbol: modelData.key === "all" ? "trash" : modelData.key.startsWith("older:") ? "clock" : "minus"
                isCareful: modelData.key === "all"
                onClicked: {
                    root.clipboard.cleanUp(modelData.key);
                    root.closeRequested();
                }
            }
        }
    }
}
