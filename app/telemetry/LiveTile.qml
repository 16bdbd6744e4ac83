import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// A tile of one reading. A message replaces the figures, in two lines under the caption.
TileFrame {
    id: root

    required property TelemetryArea area
    readonly property LiveFace face: area.face(widget)
    property tileReading reading: face.reading
    readonly property bool hasMessage: reading.message !== ""
    // The value in the colour of its level.
    readonly property color levelColor: reading.level === 0 ? Theme.ink : Theme.levelTone(reading.level, Theme.neutral).text
    // Off where a tile draws its figures itself.
    property bool hasFigures: true

    // In a small tile the value takes two lines under the symbol.
    property bool wrapsInSmall: false
    readonly property bool isWrapped: isSmall && wrapsInSmall && !hasMessage && reading.shortMessage !== ""

    // A tile that overrides it answers `activated`.
    isPressable: String(panel) !== ""
    value: isWrapped ? "" : hasMessage ? (isSmall ? reading.shortMessage : "") : !hasFigures ? "" : !isSmall ? reading.value : reading.shortMessage !== "" ? reading.shortMessage : reading.figure
    unit: hasMessage || !hasFigures ? "" : reading.unit
    valueColor: hasMessage && reading.level === 0 ? Theme.ink2 : levelColor
    subLine: hasMessage || !hasFigures || isWrapped ? "" : reading.subLine
    fact: reading.fact
    tip: reading.tip
    label: title + ", " + reading.spoken

    Symbol {
        visible: root.isWrapped
        name: root.symbol
        size: 18
        color: Theme.ink2
        anchors.horizontalCenter: parent.horizontalCenter
    }
    Label {
        visible: root.isWrapped
        y: Scaled.px(20)
        width: parent.width
        height: 2 * Theme.captionStrong.line
        text: root.reading.shortMessage
        role: Theme.captionStrong
        wrapMode: Text.Wrap
        maximumLineCount: 2
        horizontalAlignment: Text.AlignHCenter
        Accessible.ignored: true
    }
    Label {
        visible: root.hasMessage && !root.isSmall
        y: Theme.caption.line + 1
        width: root.inner.width
        height: root.inner.height - y
        text: root.reading.message
        role: Theme.smallMedium
        color: root.reading.level === 0 ? Theme.ink2 : root.levelColor
        wrapMode: Text.WordWrap
        maximumLineCount: 2
        Accessible.ignored: true
    }
}
