import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// A tile of one live reading. Where there are no figures, what it says instead stands in two lines under the caption.
TileFrame {
    id: root

    required property LiveText reading
    readonly property bool isSmall: span === TileFrame.Small
    readonly property bool hasMessage: reading.message !== ""
    // The value in the colour of its level.
    readonly property color levelColor: reading.level === 0 ? Theme.ink : reading.level === 1 ? Theme.orange.text : Theme.red.text
    // Off where a tile draws its figures itself.
    property bool hasFigures: true

    value: hasMessage ? (isSmall ? reading.shortMessage : "") : !hasFigures ? "" : isSmall ? reading.figure : reading.value
    unit: hasMessage || !hasFigures ? "" : reading.unit
    valueColor: hasMessage && reading.level === 0 ? Theme.ink2 : levelColor
    subLine: hasMessage || !hasFigures ? "" : reading.subLine
    fact: reading.fact
    tip: reading.tip
    label: name + ", " + reading.spoken

    Label {
        visible: root.hasMessage && !root.isSmall
        y: Theme.caption.line + 1
        width: root.area.width
        height: root.area.height - y
        text: root.reading.message
        role: Theme.smallMedium
        color: root.reading.level === 0 ? Theme.ink2 : root.levelColor
        wrapMode: Text.WordWrap
        maximumLineCount: 2
        hasTip: false
        Accessible.ignored: true
    }
}
