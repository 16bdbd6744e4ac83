import QtQuick
import Ambrel.Developer

// The simulated devices that run.
DeveloperTile {
    required property DeveloperList simulators

    entries: simulators
    panel: Qt.resolvedUrl("SimulatorsPanel.qml")
}
