import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Both directions of the network on one scale.
Item {
    id: root

    property tileReading reading

    Sparkline {
        anchors.fill: parent
        capacity: 30
        maximum: root.reading.ceiling
        values: root.reading.secondHistory
        tone: Theme.blue
    }
    Sparkline {
        anchors.fill: parent
        capacity: 30
        maximum: root.reading.ceiling
        values: root.reading.history
        tone: Theme.violet
    }
}
