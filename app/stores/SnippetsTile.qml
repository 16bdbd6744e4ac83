import QtQuick
import Ambrel.Stores

// The first of the texts.
ListTile {
    id: root

    required property EditedList snippets

    entries: snippets
    panel: Qt.resolvedUrl("SnippetsPanel.qml")
    emptyText: qsTr("None yet")
    restText: entries.face.count > 1 ? qsTr("and %1 more").arg(entries.face.count - 1) : qsTr("Click to copy")
}
