import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit
import Ambrel.Shelf

// The collections that a clip is in, and could be in.
Menu {
    id: root

    required property ClipboardModel clipboard
    required property string clipId
    readonly property bool isCentred: false
    readonly property bool hangsLeft: false
    readonly property int mostShown: 5
    // Counts up when a collection was chosen, so that the check marks are read again.
    property int turn: 0

    signal nameAsked

    function begin() {
        root.focusFirst();
    }

    ScrollView {
        id: scroll

        width: parent.width
        height: Math.min(root.mostShown, list.count) * 32
        visible: list.count > 0

        Column {
            width: parent.width

            Repeater {
                id: list

                model: root.clipboard.collections

                MenuRow {
                    required property string collectionId
                    required property string name

                    text: name
                    symbol: "folder"
                    isChecked: root.turn >= 0 && root.clipboard.isIn(root.clipId, collectionId)
                    onClicked: {
                        root.clipboard.toggleCollection(root.clipId, collectionId);
                        ++root.turn;
                    }
                }
            }
        }
    }
    MenuRow {
        text: qsTr("New collection…")
        symbol: "plus"
        onClicked: root.nameAsked()
    }
}
