import QtQuick
import Ambrel.Telemetry

// How hard memory is pressed, and the swap in use.
LiveTile {
    panel: Qt.resolvedUrl("MemoryPanel.qml")
}
