import QtQuick
import Ambrel.Kit
import Ambrel.Shelf

// The collections that a clip is in, and could be in.
OverlayMenu {
    id: root

    required property string clipId
    readonly property int mostShown: 5
    // Incremented to re-evaluate the check marks.
    property int turn: 0

    signal nameAsked

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
