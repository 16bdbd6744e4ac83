import QtQuick
import Ambrel.Kit
import Ambrel.Time

// How much of a span of time has passed.
RingTile {
    required property timeReading reading

    panel: Qt.resolvedUrl("ProgressPanel.qml")
    percent: reading.percent
    details: reading.subLine
    shortDetails: isNarrow ? reading.shortSubLine : reading.subLine
    tone: Theme.blue
    warns: false
}
