import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// A figure with its history beside it.
LiveTile {
    id: root

    // How many values fill the chart, and its width in a narrow and in a wide tile.
    property int capacity: 20
    property real narrowChart: 40
    readonly property real wideChart: 44
    property Tone tone: Theme.blue

    reserved: isSmall || reading.history.length === 0 ? 0 : (isMedium ? narrowChart : wideChart) + 2

    Sparkline {
        visible: !root.isSmall && !root.hasMessage
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        width: root.isMedium ? root.narrowChart : root.wideChart
        capacity: root.capacity
        maximum: root.reading.ceiling
        values: root.reading.history
        tone: root.tone
    }
}
