import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Both directions of the network on one scale.
Item {
    id: root

    required property SystemMonitor system

    Sparkline {
        anchors.fill: parent
        capacity: root.system.historyCapacity
        maximum: root.system.networkCeiling
        values: root.system.downloadHistory
        tone: Theme.blue
    }
    Sparkline {
        anchors.fill: parent
        capacity: root.system.historyCapacity
        maximum: root.system.networkCeiling
        values: root.system.uploadHistory
        tone: Theme.violet
    }
}
