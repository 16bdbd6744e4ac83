import Ambrel.Kit
import Ambrel.Telemetry

// Resolution, refresh rate and scale of the main display.
LiveTile {
    valueRole: Theme.rowTitle
    wrapsInSmall: true
}
