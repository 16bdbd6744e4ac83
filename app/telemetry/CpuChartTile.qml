import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Processor load over the last minute.
LiveTile {
    id: root

    readonly property bool isKnown: !isNaN(reading.percent)

    panel: Qt.resolvedUrl("ProcessorPanel.qml")
    fact: !isSmall && isKnown ? reading.figure : ""
    value: isSmall ? reading.figure : ""
    unit: ""
    subLine: isSmall || isKnown ? "" : reading.subLine
    label: title + ", " + (isKnown ? reading.figure : qsTr("measuring"))
    tip: qsTr("Processor load over the last minute")

    Sparkline {
        visible: !root.isSmall && root.isKnown
        y: Theme.caption.line + 2
        width: parent.width
        height: parent.height - y
        capacity: 30
        values: root.reading.history
    }
}
