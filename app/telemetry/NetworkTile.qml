import QtQuick
import Ambrel.Telemetry

// What goes up and what comes down, over the hardware interfaces.
RatesTile {
    panel: Qt.resolvedUrl("NetworkPanel.qml")
    mark: "arrow.up"
    secondMark: "arrow.down"
}
