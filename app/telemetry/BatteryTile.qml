import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// The charge of all batteries together: a ring with the name under it, or beside the figure where there is room.
LiveTile {
    id: root

    readonly property bool hasRing: !hasMessage && !isNaN(reading.percent)

    panel: Qt.resolvedUrl("PowerPanel.qml")
    symbol: reading.symbol
    fact: ""
    hasHeader: !isSmall
    // The ring beside the caption has the symbol in it.
    hasCaptionSymbol: !hasRing
    hasFigures: !(isSmall && hasRing)

    Ring {
        visible: root.hasRing
        x: root.isSmall ? (parent.width - width) / 2 : parent.width - width
        y: 0
        width: Scaled.px(root.isSmall ? 36 : 28)
        height: width
        value: root.reading.percent
        figure: root.isSmall ? root.reading.value : ""
        symbol: root.isSmall ? "" : root.reading.symbol
        tone: root.reading.isOn ? Theme.green : Theme.chargeTone(root.reading.percent)
        Accessible.ignored: true
    }
    MarkName {
        visible: root.isSmall && root.hasRing
        text: root.reading.fact === "" ? root.name : root.reading.fact
    }
}
