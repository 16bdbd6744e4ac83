import QtQuick
import Ambrel.Kit
import Ambrel.Shelf

// The possible cleanups and their counts. Each can be undone for a few seconds.
OverlayMenu {
    id: root

    readonly property var choices: clipboard.cleanups()

    hangsLeft: true
    implicitWidth: 420

    Item {
        id: heading

        width: parent.width
        height: Scaled.px(30)

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
