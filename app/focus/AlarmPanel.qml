import QtQuick
import Ambrel.Focus
import Ambrel.Kit
import Ambrel.Model

// Setting the alarm, and answering it.
Popover {
    id: root

    required property AlarmClock alarm

    title: qsTr("Alarm")
    symbol: "alarm"
    fact: root.alarm.face.isOn ? root.alarm.face.time : ""
    fitted: column

    PanelColumn {
        id: column

        Section {
            SwitchRow {
                title: qsTr("Alarm")
                detail: root.alarm.face.detail
                checked: root.alarm.face.isOn
                onToggled: checked => root.alarm.setIsOn(checked)
            }
            StepperRow {
                title: qsTr("Hour")
                value: root.alarm.face.hour
                from: 0
                to: 23
                wraps: true
                onStepped: value => root.alarm.set(value, root.alarm.face.minute)
            }
            StepperRow {
                title: qsTr("Minute")
                value: root.alarm.face.minute
                from: 0
                to: 59
                wraps: true
                onStepped: value => root.alarm.set(root.alarm.face.hour, value)
            }
            SettingRow {
                key: "alarmSnooze"
                title: qsTr("Snooze for")
                unit: qsTr("min")
            }
        }
        Label {
            visible: !buttons.visible
            width: parent.width
            text: qsTr("It rings every day, for five minutes at most.")
            role: Theme.small
            color: Theme.ink2
            wrapMode: Text.WordWrap
        }
        Row {
            id: buttons
            spacing: Theme.space2
            visible: root.alarm.face.isRinging || root.alarm.face.isSnoozed

            Button {
                kind: Button.Primary
                visible: root.alarm.face.isRinging
                text: qsTr("Snooze")
                onClicked: root.alarm.snooze()
            }
            Button {
                text: qsTr("Stop")
                onClicked: root.alarm.stop()
            }
        }
    }
}
