import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// One thing that a rule found. A click asks about it.
FindingRowGround {
    id: root

    implicitHeight: Math.max(44, words.height + Theme.space2)
    checkX: symbolX
    // Only items whose risk differs from their rule's show it.
    showsRisk: row.riskName !== ""
    symbol: hovered ? "questionmark.circle" : ""

    RowWords {
        id: words

        x: root.wordsX
        width: root.wordsEnd - x
        y: root.middle - height / 2
        title: root.row.title
        titleRole: Theme.body
        detail: root.row.detail
        note: root.row.note
        noteColor: root.row.hasStayed || root.showsRisk ? Theme.orange.text : Theme.ink2
    }
}
