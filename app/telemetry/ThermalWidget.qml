import QtQuick
import Ambrel.Telemetry

// How warm the computer runs.
LiveTile {
    name: qsTr("Thermal")
    symbol: "thermometer.medium"
}
