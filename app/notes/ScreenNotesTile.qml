import QtQuick
import Ambrel.Kit
import Ambrel.Notes

// A click captures the screen, or adds a capture to the review that is open.
TileFrame {
    required property NotesArea area
    required property ScreenNotesModel notes
    readonly property bool isOpen: notes.face.pageCount > 0

    value: isOpen ? notes.face.noteCount : qsTr("New")
    subLine: isOpen ? notes.face.pageText : qsTr("Click to capture the screen")
    label: isOpen ? qsTr("%1, %2 notes").arg(name).arg(notes.face.noteCount) : name
    tip: description
    onActivated: area.ask()
}
