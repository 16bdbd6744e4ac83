import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The focus sessions of this week, day by day.
Popover {
    id: root

    required property PomodoroTimer pomodoro

    title: qsTr("Focus Stats")
    symbol: "chart.bar"
    implicitHeight: 236

    headerItems: Label {
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("%1 this week").arg(root.pomodoro.week.total)
        role: Theme.small
        color: Theme.ink2
    }

    WeekBars {
        id: bars
        x: Theme.space4
        y: Theme.space3
        width: parent.width - 2 * Theme.space4
        height: 120
        spacing: 12
        week: root.pomodoro.week.days
    }
    TipLabel {
        x: Theme.space4
        width: parent.width - 2 * Theme.space4
        anchors.top: bars.bottom
        anchors.topMargin: Theme.space3
        text: root.pomodoro.week.streak > 1 ? qsTr("%1 today, %2 days in a row").arg(root.pomodoro.face.sessionsToday).arg(root.pomodoro.week.streak) : qsTr("%1 today").arg(root.pomodoro.face.sessionsToday)
        role: Theme.small
        color: Theme.ink2
    }
}
