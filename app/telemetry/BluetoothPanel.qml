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
    implicitHeight: 276

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

        delegate: Item {
            id: row

            required property string title
            required property string detail
            required property string figure
            required property string symbol
            required property double percent

            width: list.width
            height: 44
            Accessible.role: Accessible.ListItem
            Accessible.name: title + ", " + detail + (figure === "" ? "" : ", " + figure)

            Symbol {
                id: icon
                x: Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                name: row.symbol
                size: 20
                color: Theme.ink2
            }
            Column {
                anchors {
                    left: icon.right
                    leftMargin: Theme.space3
                    right: charge.left
                    rightMargin: Theme.space2
                    verticalCenter: parent.verticalCenter
                }

                TipLabel {
                    width: parent.width
                    text: row.title
                    role: Theme.rowTitle
                    Accessible.ignored: true
                }
                TipLabel {
                    width: parent.width
                    text: row.detail
                    role: Theme.small
                    color: Theme.ink2
                    Accessible.ignored: true
                }
            }
            Meter {
                id: charge
                visible: row.figure !== ""
                width: visible ? 104 : 0
                anchors.right: parent.right
                anchors.rightMargin: Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                value: row.percent
                figure: row.figure
                tone: Theme.chargeTone(row.percent)
            }
        }
    }
}
