import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// The head of a group: all of it can be chosen at once, and it can be folded.
FindingRowGround {
    id: root

    implicitHeight: 40
    topInset: 4

    RowCheck {
        x: Theme.space6
        y: root.middle - height / 2
        row: root.row
    }
    Label {
        anchors.left: parent.left
        anchors.leftMargin: root.row.isSelectable ? 54 : Theme.space6
        y: root.middle - height / 2
        text: root.row.title
        role: Theme.rowTitle
        Accessible.ignored: true
    }
    TipLabel {
        anchors.right: parent.right
        anchors.rightMargin: 54
        y: root.middle - height / 2
        text: root.row.size
        role: Theme.rowTitle
        Accessible.ignored: true
    }
    Symbol {
        anchors.right: parent.right
        anchors.rightMargin: Theme.space6
        y: root.middle - height / 2
        name: root.row.isOpen ? "chevron.up" : "chevron.down"
        size: 18
        color: Theme.ink2
    }
}
