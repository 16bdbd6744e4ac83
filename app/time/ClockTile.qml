import QtQuick
import Ambrel.Kit
import Ambrel.Time

TileFrame {
    required property ClockModel clock

    value: clock.face.time
    valueRole: span === TileFrame.Small ? Theme.rowTitle : Theme.clock
    subLine: clock.face.shortDate
    tip: clock.face.fullDate
}
