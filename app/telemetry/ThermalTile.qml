import QtQuick
import Ambrel.Telemetry

// How warm the computer runs.
LiveTile {
    required property LiveModels readings

    reading: readings.thermal
}
