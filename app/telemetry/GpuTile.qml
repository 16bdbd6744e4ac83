import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Load of the graphics processor, with its last 80 seconds.
LiveTile {
    id: root

    required property LiveModels readings

    reading: readings.gpu
    reserved: isSmall || reading.history.length === 0 ? 0 : 42

    Sparkline {
        visible: !root.isSmall && !root.hasMessage
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        // "100 %" has to fit beside it.
        width: root.span === TileFrame.Medium ? 40 : 44
        capacity: 20
        values: root.reading.history
    }
}
