import QtQuick
import Ambrel.Kit
import Ambrel.Stores

// The newest item of the folder.
TileFrame {
    id: root

    required property ChosenFolder chosenFolder
    readonly property folderFace face: chosenFolder.face
    readonly property bool isKnown: face.isChosen && face.problem === ""

    panel: Qt.resolvedUrl("FolderPanel.qml")
    menuText: isKnown ? qsTr("Open the Folder") : ""
    menuSymbol: "folder"
    onMenuChosen: chosenFolder.openFolder()
    problem: face.problem !== "" && isNarrow ? qsTr("Not found") : face.problem
    name: face.isChosen ? face.name : caption
    value: isSmall ? "" : !face.isChosen ? qsTr("No folder") : face.isEmpty ? qsTr("Empty") : face.newest
    valueRole: Theme.rowTitle
    valueColor: isKnown && !face.isEmpty ? Theme.ink : Theme.ink2
    subLine: !face.isChosen ? qsTr("Click to choose") : face.countText
    tip: isKnown ? label : ""
}
