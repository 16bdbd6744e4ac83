import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit
import Ambrel.Shelf

// The name of a new collection, or a new name for one.
ShelfDialog {
    id: root

    required property ClipboardModel clipboard
    // The clip that goes into the new collection; empty for none.
    property string clipId
    // The collection that gets a new name; empty for a new one.
    property string collectionId

    title: collectionId === "" ? qsTr("New collection") : qsTr("Rename collection")
    action: collectionId === "" ? qsTr("Create") : qsTr("Rename")
    canAccept: /\S/.test(name.text)
    onAccepted: {
        if (!canAccept)
            return;
        if (collectionId === "")
            clipboard.createCollection(name.text, clipId);
        else
            clipboard.renameCollection(collectionId, name.text);
        closeRequested();
    }

    function begin() {
        name.input.forceActiveFocus();
        name.selectAll();
    }

    Field {
        id: name

        width: parent.width
        symbol: "folder"
        hint: qsTr("Name")
        maximumLength: 60
        text: root.collectionId === "" ? "" : root.clipboard.collectionName(root.collectionId)
        onAccepted: root.accepted()
    }
}
