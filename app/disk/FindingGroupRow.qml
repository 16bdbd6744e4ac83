import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// The header of a group, with a check box for all its items.
FindingRowGround {
    id: root

    implicitHeight: Scaled.px(40)
    topInset: 4
    sizeRole: Theme.rowTitle
    symbol: row.isOpen ? "chevron.up" : "chevron.down"
    symbolColor: Theme.ink2

    Label {
        x: root.row.isSelectable ? Scaled.px(54) : Theme.space6
        y: root.middle - height / 2
        text: root.row.title
        role: Theme.rowTitle
        Accessible.ignored: true
    }
}
