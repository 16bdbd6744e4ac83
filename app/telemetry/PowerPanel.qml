import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Charge, adapter and the battery's health.
LivePanel {
    id: root

    readonly property tileReading battery: area.face("battery").reading
    readonly property bool hasBattery: !isNaN(battery.percent)

    title: qsTr("Power")
    symbol: "bolt.fill"
    fitted: column
    implicitHeight: hasBattery ? fittedHeight : Scaled.px(240)
    needs: ["power", "batteryHealth"]
    note: hasBattery ? area.face("batteryHealth").reading.help : ""

    PanelColumn {
        id: column

        visible: root.hasBattery
        y: Theme.space3

        Meter {
            width: parent.width
            thickness: 6
            value: root.battery.percent
            tone: root.battery.isOn ? Theme.green : Theme.chargeTone(root.battery.percent)
            figure: root.battery.figure
        }
        DetailRows {
            width: parent.width
            model: root.area.face("power").rows
        }
    }
    EmptyState {
        width: parent.width
        anchors.centerIn: parent
        visible: !root.hasBattery
        symbol: "bolt"
        title: root.battery.message === "" ? qsTr("Measuring…") : root.battery.message
        sentence: qsTr("Charge and health appear here once there is a battery.")
    }
}
