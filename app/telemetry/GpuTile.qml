import Ambrel.Telemetry

// Load of the graphics processor, with its last 80 seconds.
HistoryTile {}
