import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// How many of today's habits are done.
TileFrame {
    id: root

    required property HabitStore habits

    panel: Qt.resolvedUrl("HabitsPanel.qml")
    value: habits.face.count === 0 ? qsTr("None yet") : qsTr("%1 of %2").arg(habits.face.doneToday).arg(habits.face.count)
    valueRole: habits.face.count === 0 ? Theme.rowTitle : Theme.timer
    valueColor: habits.face.count > 0 && habits.face.doneToday === habits.face.count ? Theme.green.text : Theme.ink
    subLine: habits.face.count === 0 ? qsTr("Click to add one") : habits.face.bestStreak > 1 ? qsTr("%1 days in a row").arg(habits.face.bestStreak) : qsTr("done today")
}
