import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Time to reach the Internet, with the last ten minutes.
LiveTile {
    id: root

    required property LiveModels readings

    reading: readings.latency
    panel: Qt.resolvedUrl("LatencyPanel.qml")
    reserved: isSmall || reading.history.length === 0 ? 0 : isMedium ? 30 : 46

    Sparkline {
        visible: !root.isSmall && !root.hasMessage
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        width: root.isMedium ? 28 : 44
        capacity: 12
        maximum: root.reading.ceiling
        values: root.reading.history
        tone: Theme.levelTone(root.reading.level, Theme.blue)
    }
}
