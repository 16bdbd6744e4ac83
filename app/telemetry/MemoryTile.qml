import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

RingTile {
    required property SystemMonitor system

    panel: Qt.resolvedUrl("MemoryPanel.qml")
    percent: system.memoryPercent
    details: system.memoryText
    shortDetails: system.memoryUsedText
    tone: Theme.violet
}
