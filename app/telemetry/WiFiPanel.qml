import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// The connection's figures.
Popover {
    id: root

    required property LiveModels readings

    title: qsTr("Wi-Fi")
    symbol: "wifi"
    implicitHeight: 248

    EmptyState {
        width: parent.width
        anchors.centerIn: parent
        visible: root.readings.wifiRows.count === 0
        symbol: "wifi.slash"
        title: root.readings.wifi.message
        sentence: qsTr("The signal appears here once there is a connection.")
    }
    DetailRows {
        x: Theme.space4
        y: Theme.space3
        width: parent.width - 2 * Theme.space4
        model: root.readings.wifiRows
    }
    Label {
        x: Theme.space4
        width: parent.width - 2 * Theme.space4
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.space3
        visible: root.readings.wifiRows.count > 0
        text: root.readings.wifi.help
        role: Theme.small
        color: Theme.ink2
        wrapMode: Text.WordWrap
    }
}
