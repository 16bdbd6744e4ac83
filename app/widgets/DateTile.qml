import QtQuick
import Ambrel.Kit
import Ambrel.Widgets

TileFrame {
    required property ClockModel clock

    name: span === TileFrame.Small ? clock.shortWeekday : clock.weekday
    symbol: "calendar"
    label: clock.fullDate
    value: clock.day
    subLine: clock.month
    tip: clock.fullDate
}
