import QtQuick
import Ambrel.Kit
import Ambrel.Stores

// The first two lines of the note.
TileFrame {
    id: root

    required property QuickNote note

    panel: Qt.resolvedUrl("QuickNotePanel.qml")
    menuText: qsTr("Copy the Note")
    menuSymbol: "doc.on.doc"
    onMenuChosen: copyAsked(note.text)
    value: isSmall ? "" : note.face.isEmpty ? qsTr("No note yet") : note.face.title
    valueRole: Theme.rowTitle
    valueColor: note.face.isEmpty ? Theme.ink2 : Theme.ink
    subLine: note.face.problem !== "" ? qsTr("Not saved") : note.face.isEmpty ? qsTr("Click to write") : note.face.next
    label: note.face.isEmpty ? spoken : name + ", " + note.face.title + (note.face.next === "" ? "" : ", " + note.face.next)
    tip: note.face.isEmpty ? "" : label
}
