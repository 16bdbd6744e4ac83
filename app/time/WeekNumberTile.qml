import QtQuick
import Ambrel.Kit
import Ambrel.Time

// The number of this calendar week, and its days.
TileFrame {
    required property TimeReadingModel weekNumber

    panel: Qt.resolvedUrl("MonthPanel.qml")
    value: weekNumber.face.value
    subLine: isNarrow ? weekNumber.face.shortSubLine : weekNumber.face.subLine
    tip: weekNumber.face.subLine
}
