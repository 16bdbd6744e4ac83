import QtQuick
import Ambrel.Kit
import Ambrel.Time

TileFrame {
    required property ClockModel clock

    panel: Qt.resolvedUrl("MonthPanel.qml")
    value: clock.face.time
    valueRole: span === TileFrame.Small ? Theme.rowTitle : Theme.clock
    subLine: clock.face.shortDate
    tip: clock.face.fullDate
}
