import QtQuick
import Ambrel.Telemetry

// The adapter, charging, and the time left.
LiveTile {
    panel: Qt.resolvedUrl("PowerPanel.qml")
    symbol: reading.symbol
}
