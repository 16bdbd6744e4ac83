import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The time until the next stretch, and today's count. The ring counts one.
RingValueTile {
    required property BreakReminder standUp
    readonly property BreakReminder reminder: standUp

    panel: Qt.resolvedUrl("BreakPanel.qml")
    panelProperties: ({
            reminder: reminder,
            isForEyes: false
        })
    model: reminder
    ticks: reminder.face.isOn && !reminder.face.isDue
    percent: !reminder.face.isOn ? 0 : reminder.face.isDue ? 100 : reminder.face.percentLeft
    tone: reminder.face.isDue ? Theme.orange : Theme.teal
    control: "figure.stand"
    controlLabel: qsTr("I stood up")
    figure: !reminder.face.isOn ? qsTr("Off") : reminder.face.isDue ? qsTr("Now") : reminder.face.countdown
    ink: reminder.face.isDue ? Theme.orange.text : reminder.face.isOn ? Theme.ink : Theme.ink2
    detail: qsTr("%1 today").arg(reminder.face.countToday)
    onControlPressed: reminder.takeBreak()
}
