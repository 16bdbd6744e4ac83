import QtQuick
import Ambrel.Developer

// Simulated devices, to be started.
DeveloperPanel {
    required property DeveloperList simulators

    entries: simulators
    title: qsTr("Simulators")
    symbol: "iphone"
    emptyTitle: qsTr("No devices")
    emptySentence: qsTr("Devices that you make in Android Studio appear here.")
}
