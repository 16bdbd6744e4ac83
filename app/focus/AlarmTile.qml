import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The alarm. While it rings, its buttons snooze it and stop it.
TileFrame {
    id: root

    required property AlarmClock alarm
    // In a narrow tile the time moves into the caption, and the buttons take its place.
    readonly property bool isCrowded: alarm.face.isRinging && isMedium

    panel: Qt.resolvedUrl("AlarmPanel.qml")
    name: isCrowded ? alarm.face.time : caption
    label: title + ", " + alarm.face.time + ", " + alarm.face.detail
    value: isCrowded ? "" : alarm.face.time
    valueRole: Theme.timer
    valueColor: alarm.face.isRinging ? Theme.orange.text : alarm.face.isOn ? Theme.ink : Theme.ink3
    subLine: isCrowded ? "" : isMedium ? alarm.face.shortDetail : alarm.face.detail
    reserved: alarm.face.isRinging && !isSmall ? buttons.width : 0

    Row {
        id: buttons

        visible: root.alarm.face.isRinging && !root.isSmall
        spacing: Theme.space1
        x: root.isCrowded ? -6 : parent.width - width + 4
        y: parent.height - height + 2

        IconButton {
            size: 32
            symbolSize: 20
            symbol: "zzz"
            label: qsTr("Snooze")
            ink: Theme.orange.text
            onClicked: root.alarm.snooze()
        }
        IconButton {
            size: 32
            symbolSize: 20
            symbol: "stop.fill"
            label: qsTr("Stop the alarm")
            ink: Theme.orange.text
            onClicked: root.alarm.stop()
        }
    }
}
