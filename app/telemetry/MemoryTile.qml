import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

RingTile {
    required property TelemetryArea area
    property tileReading reading: area.face("memory").reading

    panel: Qt.resolvedUrl("MemoryPanel.qml")
    percent: reading.percent
    details: reading.tip
    shortDetails: reading.subLine
    tone: Theme.violet
}
