import Ambrel.Telemetry

// How warm the computer runs.
LiveTile {}
