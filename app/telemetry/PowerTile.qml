import QtQuick
import Ambrel.Telemetry

// The adapter, charging, and the time left.
LiveTile {
    required property LiveModels readings

    reading: readings.power
    panel: Qt.resolvedUrl("PowerPanel.qml")
    symbol: reading.symbol
}
