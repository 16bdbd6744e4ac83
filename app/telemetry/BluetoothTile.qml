import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Connected devices and their charge.
LiveTile {
    readonly property bool hasDevice: !hasMessage && reading.symbol !== ""

    panel: Qt.resolvedUrl("BluetoothPanel.qml")
    name: isSmall && hasDevice ? reading.value : caption
    label: qsTr("Bluetooth, %1").arg(reading.spoken)
    symbol: isSmall && hasDevice ? reading.symbol : "dot.radiowaves.right"
    valueRole: Theme.smallStrong
    valueColor: hasMessage ? Theme.ink2 : Theme.ink
}
