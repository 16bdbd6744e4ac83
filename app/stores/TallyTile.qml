import QtQuick
import Ambrel.Kit
import Ambrel.Stores

// Counts one up at each click.
TileFrame {
    id: root

    required property TallyCounter tally

    settingsPanel: Qt.resolvedUrl("TallyPanel.qml")
    menuText: qsTr("Set or Reset…")
    menuSymbol: "plus.forwardslash.minus"
    onMenuChosen: settingsAsked()
    onActivated: tally.add(1)
    value: isNarrow ? tally.face.brief : tally.face.text
    subLine: qsTr("Click to add one")
    tip: tally.face.text + ". " + qsTr("Click to add one")
}
