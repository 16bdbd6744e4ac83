import QtQuick
import Ambrel.Kit
import Ambrel.Shelf

// Commands for the whole history, and for the current collection.
OverlayMenu {
    id: root

    readonly property string collectionId: clipboard.filter.startsWith("collection:") ? clipboard.filter.substring(11) : ""

    signal cleanupAsked
    signal nameAsked
    signal renameAsked(string id)
    signal clearAsked
    signal settingsAsked

    hangsLeft: true

    MenuRow {
        text: qsTr("Clean up…")
        symbol: "wand.and.stars"
        enabled: !root.clipboard.face.isEmpty
        onClicked: root.cleanupAsked()
    }
    MenuRow {
        text: qsTr("New collection…")
        symbol: "plus"
        onClicked: root.nameAsked()
    }
    MenuRow {
        visible: root.collectionId !== ""
        text: qsTr("Rename this collection…")
        symbol: "pencil"
        onClicked: root.renameAsked(root.collectionId)
    }
    MenuRow {
        visible: root.collectionId !== ""
        text: qsTr("Delete this collection")
        symbol: "folder"
        isCareful: true
        onClicked: {
            root.clipboard.deleteCollection(root.collectionId);
            root.closeRequested();
        }
    }
    MenuRule {}
    MenuRow {
        text: qsTr("Clear clipboard history…")
        symbol: "trash"
        isCareful: true
        enabled: !root.clipboard.face.isEmpty
        onClicked: root.clearAsked()
    }
    MenuRow {
        text: qsTr("Clipboard settings…")
        symbol: "gearshape.fill"
        onClicked: root.settingsAsked()
    }
}
