import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// One rule and what it found, with its risk.
FindingRowGround {
    id: root

    implicitHeight: Scaled.px(48)
    checkX: Scaled.px(48)
    showsRisk: true
    sizeRole: Theme.listName
    symbol: row.isOpen ? "chevron.up" : "chevron.down"

    Symbol {
        x: root.symbolX
        y: root.middle - height / 2
        name: root.row.symbol
        size: 18
        color: Theme.ink2
    }
    RowWords {
        x: root.wordsX
        width: root.wordsEnd - x
        y: root.middle - height / 2
        title: root.row.title
        detail: root.row.detail
        elide: Text.ElideRight
    }
}
