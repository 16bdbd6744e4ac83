import QtQuick
import Ambrel.Kit
import Ambrel.Time

TileFrame {
    required property ClockModel clock

    value: clock.time
    valueRole: span === TileFrame.Small ? Theme.rowTitle : Theme.clock
    subLine: clock.shortDate
    tip: clock.fullDate
}
