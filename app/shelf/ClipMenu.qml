import QtQuick
import Ambrel.Kit
import Ambrel.Shelf

// What can be done with one clip.
OverlayMenu {
    id: root

    required property string clipId
    readonly property var face: clipboard.items.faceOf(clipId)

    signal picked
    signal textPicked
    signal previewAsked
    signal collectionsAsked

    MenuRow {
        text: qsTr("Copy")
        symbol: "doc.on.doc"
        keys: qsTr("Enter")
        onClicked: root.picked()
    }
    MenuRow {
        visible: root.face.hasTextBeside
        text: qsTr("Copy as text")
        symbol: "text.alignleft"
        onClicked: root.textPicked()
    }
    MenuRow {
        text: root.face.isPinned ? qsTr("Unpin") : qsTr("Pin")
        symbol: root.face.isPinned ? "star.fill" : "star"
        keys: qsTr("Ctrl P")
        onClicked: {
            root.clipboard.togglePin(root.clipId);
            root.closeRequested();
        }
    }
    MenuRow {
        text: qsTr("Collections…")
        symbol: "folder"
        onClicked: root.collectionsAsked()
    }
    MenuRow {
        text: qsTr("Preview")
        symbol: "eye"
        keys: qsTr("Space")
        onClicked: root.previewAsked()
    }
    MenuRule {}
    MenuRow {
        text: qsTr("Delete")
        symbol: "trash"
        keys: qsTr("Delete")
        isCareful: true
        onClicked: {
            root.clipboard.remove(root.clipId);
            root.closeRequested();
        }
    }
}
