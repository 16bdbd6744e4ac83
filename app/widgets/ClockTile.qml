import QtQuick
import Ambrel.Kit
import Ambrel.Widgets

TileFrame {
    required property ClockModel clock

    name: qsTr("Clock")
    symbol: "clock"
    value: clock.time
    valueRole: span === TileFrame.Small ? Theme.rowTitle : Theme.clock
    subLine: clock.shortDate
    tip: clock.fullDate
}
