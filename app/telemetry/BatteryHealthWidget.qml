import QtQuick
import Ambrel.Telemetry

// What the battery still holds of what it held when new.
LiveTile {
    name: qsTr("Health")
    label: qsTr("Battery Health, %1").arg(reading.spoken)
    symbol: reading.symbol
}
