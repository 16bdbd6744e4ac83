import QtQuick
import Ambrel.Telemetry

// The adapter, charging, and the time left.
LiveTile {
    name: qsTr("Power")
    symbol: reading.symbol
}
