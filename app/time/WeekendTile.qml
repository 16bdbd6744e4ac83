import QtQuick
import Ambrel.Kit
import Ambrel.Time

// How long it is until the weekend, or how much of it is left.
TileFrame {
    required property TimeReadingModel weekend

    panel: Qt.resolvedUrl("ProgressPanel.qml")
    value: weekend.face.value
    valueRole: isNarrow ? Theme.rowTitle : Theme.value
    subLine: isNarrow ? weekend.face.shortSubLine : weekend.face.subLine
    label: title + ", " + weekend.face.value + ", " + weekend.face.subLine
}
