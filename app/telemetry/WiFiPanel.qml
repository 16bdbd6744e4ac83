import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// The connection's figures.
LivePanel {
    id: root

    readonly property LiveFace face: area.face("wifi")

    title: qsTr("Wi-Fi")
    symbol: "wifi"
    fitted: list
    implicitHeight: face.rows.count > 0 ? fittedHeight : Scaled.px(240)
    note: face.rows.count > 0 ? face.reading.help : ""

    EmptyState {
        width: parent.width
        anchors.centerIn: parent
        visible: root.face.rows.count === 0
        symbol: "wifi.slash"
        title: root.face.reading.message
        sentence: qsTr("The signal appears here once there is a connection.")
    }
    DetailRows {
        id: list

        x: Theme.space4
        y: Theme.space3
        width: parent.width - 2 * Theme.space4
        model: root.face.rows
    }
}
