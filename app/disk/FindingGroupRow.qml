import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// The header of a group, with a check box for all its items.
FindingRowGround {
    id: root

    implicitHeight: Math.round(40 * Theme.textScale)
    topInset: 4
    sizeRole: Theme.rowTitle
    symbol: row.isOpen ? "chevron.up" : "chevron.down"
    symbolColor: Theme.ink2

    Label {
        x: root.row.isSelectable ? Math.round(54 * Theme.textScale) : Theme.space6
        y: root.middle - height / 2
        text: root.row.title
        role: Theme.rowTitle
        Accessible.ignored: true
    }
}
