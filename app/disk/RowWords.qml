import QtQuick
import Ambrel.Kit

// A title, a detail line below it, and an optional note.
Column {
    id: root

    property string title
    property string detail
    property string note
    property TextRole titleRole: Theme.listName
    property color noteColor: Theme.ink2
    // Names and paths are elided in the middle.
    property int elide: Text.ElideMiddle

    TipLabel {
        width: parent.width
        height: Theme.listName.line
        text: root.title
        role: root.titleRole
        elide: root.elide
        Accessible.ignored: true
    }
    TipLabel {
        width: parent.width
        text: root.detail
        role: Theme.small
        color: Theme.ink2
        elide: root.elide
        Accessible.ignored: true
    }
    Label {
        width: parent.width
        visible: root.note !== ""
        text: root.note
        role: Theme.small
        color: root.noteColor
        wrapMode: Text.WordWrap
        Accessible.ignored: true
    }
}
