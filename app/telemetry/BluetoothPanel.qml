import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// The adapter's switch, and the devices that are connected.
LivePanel {
    id: root

    required property BluetoothModel bluetooth
    readonly property LiveFace face: area.face("bluetooth")
    readonly property tileReading reading: face.reading

    title: qsTr("Bluetooth")
    symbol: "dot.radiowaves.right"
    implicitHeight: Scaled.px(276)

    headerItems: Switch {
        anchors.verticalCenter: parent.verticalCenter
        visible: !root.reading.isMissing
        focus: true
        label: qsTr("Bluetooth")
        checked: root.reading.isOn
        onToggled: checked => root.bluetooth.setOn(checked)
    }

    EmptyState {
        width: parent.width
        anchors.centerIn: parent
        visible: root.face.rows.count === 0
        symbol: "dot.radiowaves.right"
        title: root.reading.message
        sentence: root.reading.isMissing ? qsTr("An adapter that is connected appears here.") : root.reading.isOn ? qsTr("Devices that are connected appear here with their charge.") : qsTr("Switch it on to see what is connected.")
    }
    ListView {
        id: list
        anchors.fill: parent
        anchors.margins: Theme.space2
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: root.face.rows

        delegate: PartRow {
            id: row

            required figure
            required property double percent

            width: list.width
            height: Scaled.px(44)

            Meter {
                visible: row.figure !== ""
                width: Scaled.px(104)
                anchors.verticalCenter: parent.verticalCenter
                value: row.percent
                figure: row.figure
                tone: Theme.chargeTone(row.percent)
            }
        }
    }
}
