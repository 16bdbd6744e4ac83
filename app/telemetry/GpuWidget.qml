import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Load of the graphics processor, with its last 80 seconds.
LiveTile {
    id: root

    name: qsTr("GPU")
    symbol: "cpu.fill"
    reserved: isSmall || reading.history.length === 0 ? 0 : 42

    Sparkline {
        visible: !root.isSmall && !root.hasMessage
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        // "100 %" stands beside it.
        width: root.span === TileFrame.Medium ? 40 : 44
        capacity: 20
        values: root.reading.history
    }
}
