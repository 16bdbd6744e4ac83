import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// The probes of the last minutes, and what they come to.
LivePanel {
    id: root

    readonly property LiveFace face: area.face("latency")
    readonly property tileReading reading: face.reading

    title: qsTr("Latency")
    symbol: "waveform.path.ecg"
    fitted: column
    note: qsTr("A connection to 1.1.1.1 is made and closed again every 30 seconds while the tile can be seen.")

    headerItems: IconButton {
        anchors.verticalCenter: parent.verticalCenter
        label: qsTr("Ask again")
        symbol: "arrow.clockwise"
        focus: true
        onClicked: root.area.readings.refreshLatency()
    }

    PanelColumn {
        id: column

        Sparkline {
            width: parent.width
            height: Scaled.px(72)
            capacity: 20
            maximum: root.reading.ceiling
            values: root.reading.history
        }
        DetailRows {
            width: parent.width
            model: root.face.rows
        }
    }
}
