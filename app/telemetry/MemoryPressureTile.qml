import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// How hard memory is pressed, and the swap in use.
LiveTile {
    required property LiveModels readings

    reading: readings.pressure
    panel: Qt.resolvedUrl("MemoryPanel.qml")
}
