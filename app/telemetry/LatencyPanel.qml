import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// The probes of the last minutes, and what they come to.
Popover {
    id: root

    required property LiveModels readings

    title: qsTr("Latency")
    symbol: "waveform.path.ecg"
    implicitHeight: 338

    headerItems: IconButton {
        anchors.verticalCenter: parent.verticalCenter
        label: qsTr("Ask again")
        symbol: "arrow.clockwise"
        focus: true
        onClicked: root.readings.refreshLatency()
    }

    Sparkline {
        id: chart
        x: Theme.space4
        y: Theme.space2
        width: parent.width - 2 * Theme.space4
        height: 72
        capacity: 20
        maximum: root.readings.latency.ceiling
        values: root.readings.latency.history
    }
    DetailRows {
        id: details
        x: Theme.space4
        width: parent.width - 2 * Theme.space4
        anchors.top: chart.bottom
        anchors.topMargin: Theme.space3
        model: root.readings.latencyRows
    }
    Label {
        x: Theme.space4
        width: parent.width - 2 * Theme.space4
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.space3
        text: qsTr("A connection to 1.1.1.1 is made and closed again every 30 seconds while the tile can be seen.")
        role: Theme.small
        color: Theme.ink2
        wrapMode: Text.WordWrap
    }
}
