import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The time until the next stretch, and today's count. The ring counts one.
RingValueTile {
    id: root

    required property BreakReminder standUp
    readonly property BreakReminder reminder: standUp

    panel: Qt.resolvedUrl("BreakPanel.qml")
    panelProperties: ({
            reminder: reminder,
            isForEyes: false
        })
    percent: !reminder.isOn ? 0 : reminder.isDue ? 100 : reminder.percentLeft
    tone: reminder.isDue ? Theme.orange : Theme.teal
    control: "figure.stand"
    controlLabel: qsTr("I stood up")
    figure: !reminder.isOn ? qsTr("Off") : reminder.isDue ? qsTr("Now") : reminder.countdown
    widestFigure: reminder.isOn && !reminder.isDue ? reminder.countdown.replace(/[0-9]/g, "0") : ""
    ink: reminder.isDue ? Theme.orange.text : reminder.isOn ? Theme.ink : Theme.ink2
    detail: qsTr("%1 today").arg(reminder.countToday)
    onControlPressed: reminder.takeBreak()

    LiveTimeline {
        schedule: !root.reminder.isOn || root.reminder.isDue ? LiveTimeline.Never : LiveTimeline.EverySecond
        active: root.live
        onTicked: Qt.callLater(root.reminder.update) // qmllint disable
    }
}
