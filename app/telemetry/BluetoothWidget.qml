import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Connected devices and their charge.
LiveTile {
    required property BluetoothModel bluetooth

    reading: bluetooth.text
    name: qsTr("Bluetooth")
    symbol: "dot.radiowaves.right"
    valueRole: Theme.rowTitle
    valueColor: hasMessage ? Theme.ink2 : Theme.ink
}
