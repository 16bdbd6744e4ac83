import QtQuick
import Ambrel.Developer

// Simulated devices; a click starts one.
DeveloperPanel {
    required property DeveloperList simulators

    entries: simulators
    title: qsTr("Simulators")
    symbol: "iphone"
    startsOnClick: true
    emptyTitle: qsTr("No devices")
    emptySentence: qsTr("Devices that you create in Android Studio appear here.")
}
