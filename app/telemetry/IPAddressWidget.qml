import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// The address on the local network.
LiveTile {
    name: qsTr("IP Address")
    symbol: "network"
    valueRole: Theme.rowTitle
}
