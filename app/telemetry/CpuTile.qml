import QtQuick
import Ambrel.Telemetry

// Processor load, with its last minute.
HistoryTile {
    panel: Qt.resolvedUrl("ProcessorPanel.qml")
    capacity: 12
}
