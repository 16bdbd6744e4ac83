import QtQuick
import Ambrel.Kit
import Ambrel.Widgets

// One line of the network tile: an arrow, the figure in a box of its own width, the unit.
Row {
    id: root

    required property string symbol
    required property Tone tone
    required property string figure
    required property string unit
    property bool isNarrow: false

    spacing: 4

    Symbol {
        name: root.symbol
        size: 14
        color: root.tone.mark
        anchors.verticalCenter: parent.verticalCenter
    }
    TickingText {
        id: amount

        text: root.figure
        widest: root.isNarrow ? "" : "888"
        font: Theme.rowTitle.font
        color: Theme.ink
        height: Theme.rowTitle.line
        width: implicitWidth
    }
    Label {
        visible: !root.isNarrow
        text: root.unit
        role: Theme.subLine
        color: Theme.ink2
        hasTip: false
        anchors.baseline: amount.baseline
        Accessible.ignored: true
    }
}
