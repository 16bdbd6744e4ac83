import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// A tile of one live reading. Where there are no figures, what it says instead stands in two lines under the caption.
TileFrame {
    id: root

    required property LiveText reading
    readonly property bool isSmall: span === TileFrame.Small
    readonly property bool hasMessage: reading.message !== ""
    readonly property color levelColor: reading.level === 0 ? Theme.ink : reading.level === 1 ? Theme.orange.text : Theme.red.text
    // A tile that draws its figures itself leaves them out here.
    property bool hasFigures: true

    value: hasMessage ? (isSmall ? reading.shortMessage : "") : !hasFigures ? "" : isSmall && reading.unit !== "" ? reading.value + " " + reading.unit : reading.value
    unit: hasMessage || isSmall || !hasFigures ? "" : reading.unit
    valueColor: hasMessage ? Theme.ink2 : levelColor
    subLine: hasMessage || !hasFigures ? "" : reading.subLine
    fact: reading.fact
    tip: reading.tip
    label: name + ", " + (hasMessage ? reading.message : [reading.value + (reading.unit === "" ? "" : " " + reading.unit), reading.subLine].filter(part => part !== "").join(", "))

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
