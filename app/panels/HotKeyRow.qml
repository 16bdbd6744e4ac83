import QtQuick
import Ambrel.Base
import Ambrel.Kit
import Ambrel.Model

// A key of the whole desktop. A click on it takes the next combination that is pressed. Where the desktop keeps its keys,
// the row has what is to be written there.
SectionRow {
    id: root

    required property keyRow row
    property GlobalKeys keys: null

    signal copyAsked(string text)

    title: row.title
    detail: row.problem !== "" ? row.problem : row.isRecording ? qsTr("Escape: as it was. Backspace: no key.") : row.binding
    detailColor: row.problem !== "" ? Theme.red.text : Theme.ink2
    searchWords: qsTr("Shortcut hot key keyboard") + " " + row.text

    IconButton {
        anchors.verticalCenter: parent.verticalCenter
        visible: root.row.binding !== ""
        symbol: "doc.on.doc"
        label: qsTr("Copy the line for: %1").arg(root.title)
        onClicked: root.copyAsked(root.row.binding)
    }
    IconButton {
        anchors.verticalCenter: parent.verticalCenter
        visible: !root.row.isStandard && !root.row.isRecording && !root.row.isGiven
        symbol: "arrow.uturn.backward"
        label: qsTr("The usual key for: %1").arg(root.title)
        onClicked: root.keys.reset(root.row.key)
    }
    KeyCap {
        anchors.verticalCenter: parent.verticalCenter
        text: !root.row.isGiven ? "" : root.row.text === "" ? qsTr("No key") : root.row.text
    }
    Button {
        id: recorder

        visible: !root.row.isGiven
        text: root.row.isRecording ? qsTr("Press the keys…") : root.row.text === "" ? qsTr("No key") : root.row.text
        label: root.title + ": " + text
        kind: root.row.isRecording ? Button.Primary : Button.Secondary
        onClicked: {
            if (root.row.isRecording)
                return root.keys.stopRecording();
            forceActiveFocus();
            root.keys.record(root.row.key);
        }
        onActiveFocusChanged: if (!activeFocus && root.row.isRecording)
            root.keys.stopRecording()
        Keys.onShortcutOverride: event => event.accepted = root.row.isRecording
        Keys.onPressed: event => {
            if (root.row.isRecording)
                event.accepted = root.keys.press(KeyPlaces.usual(event.key, event.nativeScanCode), event.modifiers);
        }
    }
    Component.onDestruction: if (row.isRecording)
        keys.stopRecording()
}
