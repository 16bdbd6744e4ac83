import QtQuick
import Ambrel.Telemetry

// What the battery still holds of what it held when new.
LiveTile {
    required property LiveModels readings

    reading: readings.batteryHealth
    panel: Qt.resolvedUrl("PowerPanel.qml")
    symbol: reading.symbol
}
