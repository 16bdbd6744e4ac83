import QtQuick
import Ambrel.Developer
import Ambrel.Kit

// Packages with a newer version; a click copies the command that upgrades one.
DeveloperPanel {
    id: root

    required property DeveloperList packages

    signal copyAsked(string text)

    entries: packages
    title: qsTr("Homebrew")
    symbol: "mug"
    fact: face.isWorking ? qsTr("Looking…") : face.problem === "" ? face.subLine : ""
    emptyTitle: qsTr("Up to date")
    emptySentence: qsTr("Packages with a newer version appear here.")
    onChosen: (id, address, title) => copyAsked("brew upgrade " + title)
    headerItems: IconButton {
        anchors.verticalCenter: parent.verticalCenter
        symbol: "arrow.clockwise"
        label: qsTr("Check again")
        enabled: !root.face.isWorking
        onClicked: root.packages.lookAgain()
    }
}
