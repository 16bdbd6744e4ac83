import QtQuick
import Ambrel.Calendar
import Ambrel.Kit

// The reminders that are due: the first of them, and how many there are.
TileFrame {
    id: root

    required property CalendarModel calendar
    property calendarFace face: calendar.face
    readonly property taskRow task: face.task
    readonly property int due: face.dueTasks

    panel: Qt.resolvedUrl("RemindersPanel.qml")
    problem: face.problem
    fact: isWide && due > 1 ? qsTr("%1 due").arg(due) : ""
    value: isSmall ? due : due > 0 ? task.title : qsTr("Nothing due")
    valueRole: Theme.rowTitle
    valueColor: isSmall && due > 0 && task.isOverdue ? Theme.orange.text : Theme.ink
    subLine: due > 0 ? task.when : face.openTasks > 0 ? qsTr("%1 open").arg(face.openTasks) : ""
    label: isUnavailable || due === 0 ? spoken : title + ", " + qsTr("%1 due").arg(due) + ", " + task.title + ", " + task.when
}
