import QtQuick
import Ambrel.Kit
import Ambrel.Stores

// The newest download, and how many are still loading.
TileFrame {
    id: root

    required property FolderModel downloads
    property folderFace face: downloads.face
    readonly property bool isLoading: face.loadingText !== ""

    panel: Qt.resolvedUrl("DownloadsPanel.qml")
    menuText: qsTr("Open the Folder")
    menuSymbol: "folder"
    onMenuChosen: downloads.openFolder()
    problem: face.problem !== "" && isNarrow ? qsTr("Not found") : face.problem
    value: isSmall ? isLoading ? qsTr("Loading") : qsTr("Files") : face.isEmpty ? qsTr("Empty") : face.newest
    valueRole: Theme.rowTitle
    valueColor: face.isEmpty ? Theme.ink2 : Theme.ink
    subLine: isLoading ? face.loadingText : face.newestDetail
    tip: isUnavailable ? "" : label

    Symbol {
        visible: root.isLoading && root.isWide
        x: parent.width - width
        name: "arrow.down.circle"
        size: 14
        color: Theme.blue.text
    }
}
