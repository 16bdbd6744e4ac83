import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Charge, adapter and the battery's health.
Popover {
    id: root

    required property LiveModels readings
    readonly property LiveText battery: readings.battery

    title: qsTr("Power")
    symbol: "bolt.fill"
    implicitHeight: 288

    LiveNeed {
        readings: root.readings
        parts: ["power", "batteryHealth"]
        active: root.open
    }
    Meter {
        id: meter
        visible: !isNaN(root.battery.percent)
        x: Theme.space4
        y: Theme.space3
        width: parent.width - 2 * Theme.space4
        thickness: 6
        value: root.battery.percent
        tone: root.battery.isOn ? Theme.green : Theme.chargeTone(root.battery.percent)
        figure: root.battery.figure
    }
    EmptyState {
        width: parent.width
        anchors.centerIn: parent
        visible: !meter.visible
        symbol: "bolt"
        title: root.battery.message === "" ? qsTr("Measuring…") : root.battery.message
        sentence: qsTr("Charge and health appear here once there is a battery.")
    }
    DetailRows {
        x: Theme.space4
        width: parent.width - 2 * Theme.space4
        visible: meter.visible
        anchors.top: meter.bottom
        anchors.topMargin: Theme.space3
        model: root.readings.powerRows
    }
    Label {
        x: Theme.space4
        width: parent.width - 2 * Theme.space4
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.space3
        visible: meter.visible && root.readings.batteryHealth.help !== ""
        text: root.readings.batteryHealth.help
        role: Theme.small
        color: Theme.ink2
        wrapMode: Text.WordWrap
    }
}
