import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Time to reach the Internet, with the last ten minutes.
HistoryTile {
    panel: Qt.resolvedUrl("LatencyPanel.qml")
    capacity: 12
    narrowChart: 28
    tone: Theme.levelTone(reading.level, Theme.blue)
}
