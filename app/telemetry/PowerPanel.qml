import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Charge, adapter and the battery's health.
LivePanel {
    id: root

    readonly property tileReading battery: area.face("battery").reading

    title: qsTr("Power")
    symbol: "bolt.fill"
    implicitHeight: 288
    needs: ["power", "batteryHealth"]
    note: meter.visible ? area.face("batteryHealth").reading.help : ""

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
        model: root.area.face("power").rows
    }
}
