import QtQuick
import Ambrel.Kit
import Ambrel.Panels

// Something that is kept or read: what it is, where it is, and what can be done with it.
SectionRow {
    id: root

    required property privacyRow row
    property PrivacyModel privacy: null
    property bool asksToDelete: false

    title: asksToDelete ? qsTr("Delete %1?").arg(row.title) : row.title
    detail: row.detail + "\n" + (row.place !== "" ? row.place : qsTr("Nothing is there"))
    enabled: row.place !== ""

    Button {
        text: root.asksToDelete ? qsTr("Cancel") : qsTr("Show")
        label: text + ", " + root.row.title
        onClicked: root.asksToDelete ? root.asksToDelete = false : root.privacy.show(root.row.rowId)
    }
    Button {
        visible: root.row.isKept
        text: root.asksToDelete ? qsTr("Delete") : qsTr("Delete…")
        label: text + ", " + root.row.title
        isCareful: true
        onClicked: {
            if (root.asksToDelete)
                root.privacy.deleteKept(root.row.rowId);
            root.asksToDelete = !root.asksToDelete;
        }
    }
}
