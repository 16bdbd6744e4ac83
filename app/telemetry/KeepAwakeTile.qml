import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Keeps the computer awake while it is on.
SwitchTile {
    required property KeepAwakeModel keepAwake

    onActivated: keepAwake.toggle()
    unlitTone: Theme.levelTone(reading.level, Theme.neutral)
}
