import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// How many of today's habits are done.
TileFrame {
    id: root

    required property HabitStore habits

    panel: Qt.resolvedUrl("HabitsPanel.qml")
    value: habits.count === 0 ? qsTr("None yet") : qsTr("%1 of %2").arg(habits.doneToday).arg(habits.count)
    valueRole: habits.count === 0 ? Theme.rowTitle : Theme.timer
    valueColor: habits.count > 0 && habits.doneToday === habits.count ? Theme.green.text : Theme.ink
    subLine: habits.count === 0 ? qsTr("Click to add one") : habits.bestStreak > 1 ? qsTr("%1 days in a row").arg(habits.bestStreak) : qsTr("done today")
}
