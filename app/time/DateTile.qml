import QtQuick
import Ambrel.Kit
import Ambrel.Time

TileFrame {
    required property ClockModel clock

    panel: Qt.resolvedUrl("MonthPanel.qml")
    name: span === TileFrame.Small ? clock.face.shortWeekday : clock.face.weekday
    label: clock.face.fullDate
    value: clock.face.day
    subLine: clock.face.month
    tip: clock.face.fullDate
}
