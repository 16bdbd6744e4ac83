import QtQuick
import Ambrel.Kit
import Ambrel.Time

// The days until a date of the user's.
TileFrame {
    required property CountdownModel countdown

    panel: Qt.resolvedUrl("CountdownPanel.qml")
    value: countdown.face.value
    unit: countdown.face.unit
    valueColor: countdown.face.unit === "" ? Theme.green.text : Theme.ink
    subLine: countdown.face.title
    tip: countdown.face.title + ", " + countdown.face.date
}
