import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// A tile of a share: a ring with its name under it, or beside the figure where there is room.
LiveTile {
    id: root

    property Tone tone: Theme.teal
    // Under the small ring.
    property string shortName: name
    readonly property bool hasRing: !hasMessage && !isNaN(reading.percent)

    hasHeader: !isSmall
    // The ring beside the caption has the symbol in it.
    hasCaptionSymbol: !hasRing
    hasFigures: !(isSmall && hasRing)

    Ring {
        visible: root.hasRing
        x: root.isSmall ? (parent.width - width) / 2 : parent.width - width
        y: 0
        width: root.isSmall ? 36 : 28
        height: width
        value: root.reading.percent
        figure: root.isSmall ? root.reading.value : ""
        symbol: root.isSmall ? "" : root.reading.symbol
        tone: root.tone
        Accessible.ignored: true
    }
    Label {
        visible: root.isSmall && root.hasRing
        x: (parent.width - width) / 2
        y: 38
        width: Math.min(implicitWidth, parent.width)
        text: root.shortName
        role: Theme.caption
        color: Theme.ink2
        Accessible.ignored: true
    }
}
