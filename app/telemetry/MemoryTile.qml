import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

RingTile {
    required property SystemMonitor system
    readonly property tileReading reading: system.memory.reading

    panel: Qt.resolvedUrl("MemoryPanel.qml")
    percent: reading.percent
    details: reading.tip
    shortDetails: reading.subLine
    tone: Theme.violet
}
