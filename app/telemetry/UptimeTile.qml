import Ambrel.Kit
import Ambrel.Telemetry

// Time since the last start.
LiveTile {
    valueRole: Theme.timer
}
