import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Resolution, refresh rate and scale of the main display.
LiveTile {
    name: qsTr("Display")
    symbol: "display"
    valueRole: Theme.rowTitle
    wrapsInSmall: true
}
