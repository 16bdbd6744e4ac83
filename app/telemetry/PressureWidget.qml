import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// How hard memory is pressed, and the swap in use.
LiveTile {
    name: qsTr("Pressure")
    label: qsTr("Memory Pressure, %1").arg(reading.spoken)
    symbol: "gauge.medium"
}
