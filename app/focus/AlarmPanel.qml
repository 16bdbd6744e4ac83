import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// Setting the alarm, and answering it.
Popover {
    id: root

    required property AlarmClock alarm

    title: qsTr("Alarm")
    symbol: "alarm"
    implicitHeight: 324

    headerItems: Label {
        anchors.verticalCenter: parent.verticalCenter
        text: root.alarm.face.isOn ? root.alarm.face.time : ""
        role: Theme.small
        color: Theme.ink2
    }

    Section {
        id: section
        x: Theme.space4
        y: Theme.space2
        width: parent.width - 2 * Theme.space4

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
        StepperRow {
            title: qsTr("Snooze for")
            value: root.alarm.face.snoozeMinutes
            to: 60
            unit: qsTr("min")
            onStepped: value => root.alarm.setSnoozeMinutes(value)
        }
    }
    Label {
        visible: !buttons.visible
        x: Theme.space4
        width: parent.width - 2 * Theme.space4
        anchors.top: section.bottom
        anchors.topMargin: Theme.space3
        text: qsTr("It rings every day, for five minutes at most.")
        role: Theme.small
        color: Theme.ink2
        wrapMode: Text.WordWrap
    }
    Row {
        id: buttons
        x: Theme.space4
        anchors.top: section.bottom
        anchors.topMargin: Theme.space3
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
