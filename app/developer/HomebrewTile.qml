import QtQuick
import Ambrel.Developer

// How many packages are outdated.
DeveloperTile {
    required property DeveloperList packages

    entries: packages
    panel: Qt.resolvedUrl("HomebrewPanel.qml")
}
