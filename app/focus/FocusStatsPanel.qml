import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The focus sessions of this week, day by day.
Popover {
    id: root

    required property PomodoroTimer pomodoro

    title: qsTr("Focus Stats")
    symbol: "chart.bar"
    fact: qsTr("%1 this week").arg(root.pomodoro.week.total)
    fitted: column

    PanelColumn {
        id: column

        y: Theme.space3

        WeekBars {
            width: parent.width
            height: Scaled.px(120)
            spacing: 12
            week: root.pomodoro.week.days
        }
        TipLabel {
            width: parent.width
            text: root.pomodoro.week.streak > 1 ? qsTr("%1 today, %2 days in a row").arg(root.pomodoro.face.sessionsToday).arg(root.pomodoro.week.streak) : qsTr("%1 today").arg(root.pomodoro.face.sessionsToday)
            role: Theme.small
            color: Theme.ink2
        }
    }
}
