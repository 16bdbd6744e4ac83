import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Time to reach the Internet, with the last ten minutes.
LiveTile {
    id: root

    name: qsTr("Latency")
    symbol: "waveform.path.ecg"
    reserved: isSmall ? 0 : 42

    Sparkline {
        visible: !root.isSmall && !root.hasMessage
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        capacity: 20
        maximum: 0
        values: root.reading.history
        tone: root.reading.level === 0 ? Theme.blue : root.reading.level === 1 ? Theme.orange : Theme.red
    }
}
