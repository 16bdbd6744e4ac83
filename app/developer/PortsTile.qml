import QtQuick
import Ambrel.Developer

// The ports of this computer at which the user's programs listen.
DeveloperTile {
    required property DeveloperList servers

    entries: servers
    panel: Qt.resolvedUrl("PortsPanel.qml")
}
