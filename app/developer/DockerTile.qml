import QtQuick
import Ambrel.Developer

// The containers that run.
DeveloperTile {
    required property DeveloperList containers

    entries: containers
    panel: Qt.resolvedUrl("DockerPanel.qml")
}
