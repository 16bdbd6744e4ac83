import QtQuick
import Ambrel.Kit
import Ambrel.Time

TileFrame {
    required property ClockModel clock

    name: span === TileFrame.Small ? clock.shortWeekday : clock.weekday
    label: clock.fullDate
    value: clock.day
    subLine: clock.month
    tip: clock.fullDate
}
