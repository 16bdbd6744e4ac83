import QtQuick
import Ambrel.Calendar
import Ambrel.Kit

// The reminders that are due: the first of them, and how many there are.
TileFrame {
    id: root

    required property CalendarModel calendar
    readonly property taskRow task: calendar.face.task
    readonly property int due: calendar.face.dueTasks

    panel: Qt.resolvedUrl("RemindersPanel.qml")
    problem: calendar.face.problem
    fact: isWide && due > 1 ? qsTr("%1 due").arg(due) : ""
    value: isSmall ? due : due > 0 ? task.title : qsTr("Nothing due")
    valueRole: Theme.rowTitle
    valueColor: isSmall && due > 0 && task.isOverdue ? Theme.orange.text : Theme.ink
    subLine: due > 0 ? task.when : calendar.face.openTasks > 0 ? qsTr("%1 open").arg(calendar.face.openTasks) : ""
    label: isUnavailable || due === 0 ? spoken : title + ", " + qsTr("%1 due").arg(due) + ", " + task.title + ", " + task.when
}
