import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Time since the last start.
LiveTile {
    name: qsTr("Uptime")
    symbol: "clock.arrow.circlepath"
    valueRole: Theme.timer
}
