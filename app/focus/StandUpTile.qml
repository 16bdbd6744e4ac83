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
    percent: !reminder.face.isOn ? 0 : reminder.face.isDue ? 100 : reminder.face.percentLeft
    tone: reminder.face.isDue ? Theme.orange : Theme.teal
    control: "figure.stand"
    controlLabel: qsTr("I stood up")
    figure: !reminder.face.isOn ? qsTr("Off") : reminder.face.isDue ? qsTr("Now") : reminder.face.countdown
    widestFigure: reminder.face.isOn && !reminder.face.isDue ? reminder.face.countdown.replace(/[0-9]/g, "0") : ""
    ink: reminder.face.isDue ? Theme.orange.text : reminder.face.isOn ? Theme.ink : Theme.ink2
    detail: qsTr("%1 today").arg(reminder.face.countToday)
    onControlPressed: reminder.takeBreak()

    LiveTimeline {
        schedule: !root.reminder.face.isOn || root.reminder.face.isDue ? LiveTimeline.Never : LiveTimeline.EverySecond
        active: root.live
        onTicked: Qt.callLater(root.reminder.update) // qmllint disable
    }
}
