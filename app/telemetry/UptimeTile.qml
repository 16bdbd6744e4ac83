import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Time since the last start.
LiveTile {
    required property LiveModels readings

    reading: readings.uptime
    valueRole: Theme.timer
}
