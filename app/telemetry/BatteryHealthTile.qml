import QtQuick
import Ambrel.Telemetry

// What the battery still holds of what it held when new.
LiveTile {
    panel: Qt.resolvedUrl("PowerPanel.qml")
    symbol: reading.symbol
}
