import QtQuick
import Ambrel.Kit
import Ambrel.Stores

// Runs the shortcut; without one, a click lets the user choose it.
TileFrame {
    id: root

    required property ShortcutModel shortcut
    readonly property shortcutFace face: shortcut.face
    readonly property bool hasPicture: isSmall && face.picture !== ""

    settingsPanel: Qt.resolvedUrl("ShortcutsPanel.qml")
    menuText: face.isChosen ? qsTr("Choose Another…") : qsTr("Choose a Shortcut…")
    menuSymbol: "command"
    onMenuChosen: settingsAsked()
    onActivated: face.isChosen && face.problem === "" ? shortcut.run() : settingsAsked()
    problem: face.problem
    name: face.isChosen ? face.name : caption
    value: isSmall ? "" : face.isChosen ? face.name : qsTr("None chosen")
    valueRole: Theme.rowTitle
    valueColor: face.isChosen ? Theme.ink : Theme.ink2
    subLine: !face.isChosen ? qsTr("Click to choose") : face.program === face.name ? qsTr("Click to run") : face.program
    symbol: hasPicture ? "" : widgetSymbol
    label: face.isChosen ? qsTr("Run %1").arg(face.name) + (face.problem === "" ? "" : ", " + face.problem) : qsTr("Shortcuts, none chosen")
    tip: label

    Image {
        visible: root.hasPicture
        anchors.horizontalCenter: parent.horizontalCenter
        y: root.isSmall ? 2 : 0
        width: 28
        height: 28
        sourceSize.width: 56
        sourceSize.height: 56
        source: root.face.picture
        asynchronous: true
    }
}
