import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The alarm. While it rings, its buttons snooze it and stop it.
TileFrame {
    id: root

    required property AlarmClock alarm

    name: qsTr("Alarm")
    symbol: "alarm"
    value: alarm.time
    valueRole: Theme.timer
    valueColor: alarm.isRinging ? Theme.orange.text : alarm.isOn ? Theme.ink : Theme.ink3
    subLine: alarm.detail
    reserved: alarm.isRinging && span !== TileFrame.Small ? buttons.width : 0

    Row {
        id: buttons

        visible: root.alarm.isRinging
        anchors.right: parent.right
        anchors.rightMargin: -4
        anchors.bottom: parent.bottom
        anchors.bottomMargin: -2

        IconButton {
            symbol: "zzz"
            label: qsTr("Snooze")
            ink: Theme.orange.text
            onClicked: root.alarm.snooze()
        }
        IconButton {
            symbol: "stop.fill"
            label: qsTr("Stop the alarm")
            ink: Theme.orange.text
            onClicked: root.alarm.stop()
        }
    }
}
