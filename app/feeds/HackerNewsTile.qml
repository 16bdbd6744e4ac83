import QtQuick
import Ambrel.Feeds

// The top story; a click opens it, and the rest are in the panel.
TextTile {
    id: root

    required property StoriesModel stories
    property storiesFace face: stories.face

    settingsPanel: Qt.resolvedUrl("StoriesPanel.qml")
    menuText: qsTr("More Stories…")
    menuSymbol: "newspaper"
    onMenuChosen: settingsAsked()
    onActivated: if (!stories.openTop())
        settingsAsked()
    problem: face.problem
    staleSince: face.staleSince
    text: face.title
    value: isSmall ? face.points : ""
    fact: isWide ? face.points : ""
}
