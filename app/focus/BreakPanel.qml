import QtQuick
import Ambrel.Focus
import Ambrel.Kit
import Ambrel.Model

// The interval of one of the two break reminders.
Popover {
    id: root

    required property BreakReminder reminder
    property bool live: true
    property bool isForEyes: true

    title: isForEyes ? qsTr("Eye Break") : qsTr("Stand Up")
    symbol: isForEyes ? "eye" : "figure.stand"
    fitted: column

    LiveTimeline {
        schedule: root.reminder.face.isOn ? LiveTimeline.EverySecond : LiveTimeline.Never
        active: root.live
        onTicked: Qt.callLater(root.reminder.update) // qmllint disable
    }

    PanelColumn {
        id: column

        Section {
            SettingRow {
                key: root.isForEyes ? "eyeBreakOn" : "standUpOn"
                title: qsTr("Reminders")
                detail: root.reminder.face.isOn ? qsTr("%1 left").arg(root.reminder.face.countdown) : ""
            }
            SettingRow {
                key: root.isForEyes ? "eyeBreakInterval" : "standUpInterval"
                title: qsTr("Every")
                step: 5
                unit: qsTr("min")
            }
        }
        Row {
            width: parent.width
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
}
