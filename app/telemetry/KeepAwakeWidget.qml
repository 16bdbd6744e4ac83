import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Keeps the computer awake while it is on.
SwitchTile {
    required property KeepAwakeModel keepAwake

    reading: keepAwake.text
    name: qsTr("Keep Awake")
    symbol: "cup.and.heat.waves"
    unlitTone: reading.level > 0 ? Theme.orange : Theme.neutral
}
