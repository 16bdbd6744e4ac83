import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The interval of one of the two break reminders.
Popover {
    id: root

    required property BreakReminder reminder
    property bool live: true
    property bool isForEyes: true

    title: isForEyes ? qsTr("Eye Break") : qsTr("Stand Up")
    symbol: isForEyes ? "eye" : "figure.stand"
    implicitHeight: 226

    LiveTimeline {
        schedule: root.reminder.face.isOn ? LiveTimeline.EverySecond : LiveTimeline.Never
        active: root.live
        onTicked: Qt.callLater(root.reminder.update) // qmllint disable
    }

    Section {
        id: section
        x: Theme.space4
        y: Theme.space2
        width: parent.width - 2 * Theme.space4

        SwitchRow {
            title: qsTr("Reminders")
            detail: root.reminder.face.isOn ? qsTr("%1 left").arg(root.reminder.face.countdown) : ""
            checked: root.reminder.face.isOn
            onToggled: checked => root.reminder.setIsOn(checked)
        }
        StepperRow {
            title: qsTr("Every")
            value: root.reminder.face.intervalMinutes
            to: 240
            step: 5
            unit: qsTr("min")
            onStepped: value => root.reminder.setIntervalMinutes(value)
        }
    }
    Row {
        x: Theme.space4
        width: parent.width - 2 * Theme.space4
        anchors.top: section.bottom
        anchors.topMargin: Theme.space3
        spacing: Theme.space3

        Button {
            kind: Button.Primary
            focus: true
            text: root.reminder.face.isOnBreak ? qsTr("End the break") : root.isForEyes ? qsTr("Take the break now") : qsTr("I stood up")
            onClicked: root.reminder.face.isOnBreak ? root.reminder.endBreak() : root.reminder.takeBreak()
        }
        Label {
            text: qsTr("%1 today").arg(root.reminder.face.countToday)
            role: Theme.small
            color: Theme.ink2
            anchors.verticalCenter: parent.verticalCenter
        }
    }
}
