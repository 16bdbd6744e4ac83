import QtQuick
import Ambrel.Kit
import Ambrel.Notes

// One note of the list: its pin's number, the text to write, and a button that removes the pin.
FocusScope {
    id: root

    required property ScreenNotesModel notes
    required property string pinId
    required property int number
    required property string note
    required property color tone
    readonly property bool isChosen: notes.chosenPin === pinId

    // Tab leaves the note for the next, Escape for the capture.
    signal leave(bool backwards)
    signal done

    function write() {
        edit.forceActiveFocus();
    }

    implicitHeight: Math.max(56, edit.implicitHeight + 2 * Theme.space4)

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusCard
        color: root.isChosen ? Theme.cardHover : Theme.card
        border.width: root.isChosen ? 2 : 1
        border.color: root.isChosen ? Theme.accent : Theme.over(Theme.line, Theme.card)
    }
    Rectangle {
        id: badge

        x: Theme.space3
        y: Theme.space4 - 2
        width: 22
        height: 22
        radius: 11
        color: root.tone

        Label {
            anchors.centerIn: parent
            text: root.number
            role: Theme.captionStrong
            color: "white"
            Accessible.ignored: true
        }
    }
    TextEdit {
        id: edit

        anchors {
            left: badge.right
            leftMargin: Theme.space3
            right: remove.left
            rightMargin: Theme.space1
            top: parent.top
            topMargin: Theme.space4
        }
        focus: true
        activeFocusOnTab: true
        text: root.note
        color: Theme.ink
        font: Theme.body.font
        wrapMode: TextEdit.Wrap
        selectByMouse: true
        selectionColor: Theme.accent
        selectedTextColor: Theme.onAccent
        textFormat: TextEdit.PlainText
        Accessible.role: Accessible.EditableText
        Accessible.name: qsTr("Note %1").arg(root.number)
        Accessible.multiLine: true
        Keys.onTabPressed: root.leave(false)
        Keys.onBacktabPressed: root.leave(true)
        Keys.onEscapePressed: root.done()
        onActiveFocusChanged: {
            if (activeFocus)
                root.notes.chosenPin = root.pinId;
            else
                root.notes.endRun();
        }
        onTextChanged: if (text !== root.note)
            root.notes.setNote(root.pinId, text)

        Label {
            visible: parent.text === "" && parent.preeditText === ""
            text: qsTr("Write a note")
            color: Theme.ink3
            Accessible.ignored: true
        }
    }
    IconButton {
        id: remove

        anchors.right: parent.right
        anchors.rightMargin: Theme.space2
        y: Theme.space3 - 1
        symbol: "trash"
        label: qsTr("Remove note %1").arg(root.number)
        onClicked: root.notes.removePin(root.pinId)
    }
    // The whole card chooses its note.
    TapHandler {
        onTapped: root.write()
    }
    Connections {
        target: root

        function onNoteChanged() {
            if (edit.text !== root.note)
                edit.text = root.note;
        }
    }
}
