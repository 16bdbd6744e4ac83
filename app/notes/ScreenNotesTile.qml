import QtQuick
import Ambrel.Kit
import Ambrel.Notes

// A click captures the screen, or adds a capture to the review that is open.
TileFrame {
    required property NotesArea area
    required property ScreenNotesModel notes

    value: notes.face.pageCount > 0 ? notes.face.noteCount : ""
    label: notes.face.pageCount > 0 ? qsTr("%1, %2 notes").arg(name).arg(notes.face.noteCount) : name
    tip: description
    onActivated: area.ask()
}
