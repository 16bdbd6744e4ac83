import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Resolution, refresh rate and scale of the main display.
LiveTile {
    required property LiveModels readings

    reading: readings.display
    valueRole: Theme.rowTitle
    wrapsInSmall: true
}
