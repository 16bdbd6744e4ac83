import QtQuick
import Ambrel.Kit
import Ambrel.Stores

// The first sites; a click on one opens it, a click elsewhere shows all.
ListTile {
    id: root

    required property BookmarkList bookmarks

    entries: bookmarks
    panel: Qt.resolvedUrl("BookmarksPanel.qml")
    emptyText: qsTr("None yet")
    value: isSmall && !isEmpty ? entries.face.count : isEmpty && !isSmall ? emptyText : ""
    subLine: isEmpty ? qsTr("Click to add one") : ""
    label: isEmpty ? spoken : name + ", " + qsTr("%1 sites").arg(entries.face.count)

    ListView {
        id: sites

        visible: !root.isSmall && !root.isEmpty
        anchors.bottom: parent.bottom
        width: Math.floor((parent.width + spacing) / (height + spacing)) * (height + spacing) - spacing
        height: 28
        orientation: ListView.Horizontal
        interactive: false
        clip: true
        spacing: 2
        model: root.isSmall ? null : root.bookmarks.rows

        delegate: SiteButton {
            // The others are in the panel.
            visible: x + width <= sites.width
            onClicked: root.bookmarks.visit(row.entryId)
        }
    }
}
