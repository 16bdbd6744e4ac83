import QtQuick
import Ambrel.Kit

// One line of a tile of two rates: an arrow or a letter, the figure in a box of its own width, the unit.
Row {
    id: root

    // A letter, or the name of a symbol.
    required property string mark
    property bool hasLetter: false
    required property Tone tone
    required property string figure
    required property string unit
    property bool isNarrow: false

    spacing: isNarrow ? 2 : 4

    Symbol {
        visible: !root.hasLetter
        name: root.hasLetter ? "" : root.mark
        size: 14
        color: root.tone.mark
        anchors.verticalCenter: parent.verticalCenter
    }
    Label {
        visible: root.hasLetter
        text: root.hasLetter ? root.mark : ""
        role: Theme.captionStrong
        color: root.tone.text
        width: Scaled.px(14)
        horizontalAlignment: Text.AlignHCenter
        anchors.baseline: amount.baseline
        Accessible.ignored: true
    }
    TickingText {
        id: amount

        text: root.figure
        widest: root.isNarrow ? "" : "88.8"
        font: Theme.rowTitle.font
        alignment: Qt.AlignRight
        color: Theme.ink
        height: Theme.rowTitle.line
        width: implicitWidth
    }
    Label {
        // "M" for "MB/s": the tip has it whole.
        text: root.isNarrow ? root.unit.charAt(0) : root.unit
        role: Theme.subLine
        color: Theme.ink2
        anchors.baseline: amount.baseline
        Accessible.ignored: true
    }
}
