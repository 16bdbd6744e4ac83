import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Time to reach the Internet, with the last ten minutes.
LiveTile {
    id: root

    // "999 ms" stands beside the curve.
    readonly property bool isNarrow: span === TileFrame.Medium

    name: qsTr("Latency")
    symbol: "waveform.path.ecg"
    reserved: isSmall || reading.history.length === 0 ? 0 : isNarrow ? 30 : 46

    Sparkline {
        visible: !root.isSmall && !root.hasMessage
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        width: root.isNarrow ? 28 : 44
        capacity: 12
        maximum: root.reading.ceiling
        values: root.reading.history
        tone: root.reading.level === 0 ? Theme.blue : root.reading.level === 1 ? Theme.orange : Theme.red
    }
}
