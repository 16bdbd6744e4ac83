import QtQuick
import Ambrel.Kit

// A line of text to type, with a symbol and a hint; as a search field it has a button that clears it.
FocusScope {
    id: root

    property alias text: input.text
    property string hint
    // What is typed here, for screen readers; where the hint is an example it does not say so.
    property string label: hint
    property string symbol
    property bool isSearch: false
    property bool isSecret: false
    property alias maximumLength: input.maximumLength
    property alias input: input
    // Left and Right, Up and Down leave the text: they walk through what it has found. Without a text, Delete, Space
    // and Control+P act on it.
    property bool walks: false

    // Return was pressed.
    signal accepted
    // One of these keys was pressed.
    signal walked(int key)
    signal acted(int key)
    // Control+Z, and nothing of the text to take back.
    signal undoAsked

    function selectAll() {
        input.selectAll();
    }

    implicitWidth: 200
    implicitHeight: Math.max(32, Theme.body.line + 14)
    opacity: enabled ? 1 : 0.5

    Rectangle {
        anchors.fill: parent
        radius: root.height >= 40 ? Theme.radiusCard : Theme.radiusButton
        color: Theme.field
        border.width: input.activeFocus ? 2 : 1
        border.color: input.activeFocus ? Theme.accent : Theme.over(Theme.lineStrong, Theme.field)
    }
    Symbol {
        id: icon
        name: root.isSearch && root.symbol === "" ? "magnifyingglass" : root.symbol
        visible: name !== ""
        size: 18
        color: Theme.ink2
        x: 10
        anchors.verticalCenter: parent.verticalCenter
    }
    TextInput {
        id: input
        anchors {
            left: parent.left
            leftMargin: icon.visible ? icon.x + icon.width + Theme.space2 : Theme.space3
            right: clear.visible ? clear.left : parent.right
            rightMargin: clear.visible ? 2 : Theme.space3
            verticalCenter: parent.verticalCenter
        }
        focus: true
        activeFocusOnTab: true
        clip: true
        selectByMouse: true
        color: Theme.ink
        font: Theme.body.font
        selectionColor: Theme.accent
        selectedTextColor: Theme.onAccent
        echoMode: root.isSecret ? TextInput.Password : TextInput.Normal
        Accessible.role: Accessible.EditableText
        Accessible.name: root.label
        Accessible.searchEdit: root.isSearch
        Keys.onEscapePressed: event => {
            event.accepted = root.isSearch && text !== "";
            if (event.accepted)
                text = "";
        }
        Keys.onPressed: event => {
            if (event.matches(StandardKey.Undo) && !input.canUndo) {
                root.undoAsked();
                event.accepted = true;
                return;
            }
            const isWalk = [Qt.Key_Left, Qt.Key_Right, Qt.Key_Up, Qt.Key_Down].indexOf(event.key) >= 0;
            const isPlain = event.modifiers === Qt.NoModifier;
            const isAct = isPlain && (event.key === Qt.Key_Delete || event.key === Qt.Key_Space) || event.modifiers === Qt.ControlModifier && event.key === Qt.Key_P;
            const isFree = isAct && text === "" && preeditText === "";
            event.accepted = root.walks && (isWalk && isPlain || isFree);
            if (event.accepted && isFree)
                root.acted(event.key);
            else if (event.accepted)
                root.walked(event.key);
        }
        onAccepted: root.accepted()
        cursorDelegate: Rectangle {
            width: 1.5
            color: Theme.accent
            visible: input.activeFocus
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width
            visible: input.text === "" && input.preeditText === ""
            text: root.hint
            color: Theme.ink3
            Accessible.ignored: true
        }
    }
    IconButton {
        id: clear
        visible: root.isSearch && input.text !== ""
        anchors.right: parent.right
        anchors.rightMargin: 2
        anchors.verticalCenter: parent.verticalCenter
        size: 24
        symbolSize: 16
        symbol: "xmark"
        label: qsTr("Clear")
        onClicked: {
            input.text = "";
            input.forceActiveFocus();
        }
    }
}
