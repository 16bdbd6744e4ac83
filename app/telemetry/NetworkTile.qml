import QtQuick
import Ambrel.Telemetry

// Upload and download over the hardware interfaces.
RatesTile {
    panel: Qt.resolvedUrl("NetworkPanel.qml")
    mark: "arrow.up"
    secondMark: "arrow.down"
}
