import QtQuick
import Ambrel.Kit
import Ambrel.Notes

// A click takes a picture of the screen and shows what can be done with it.
TileFrame {
    id: root

    required property ScreenshotModel screenshot

    settingsPanel: Qt.resolvedUrl("ScreenshotPanel.qml")
    menuText: qsTr("In 5 Seconds")
    menuSymbol: "timer"
    onMenuChosen: screenshot.takeLater()
    onActivated: screenshot.take()
    value: isSmall ? screenshot.face.isWaiting ? qsTr("Soon") : qsTr("Shot") : screenshot.face.isWaiting ? qsTr("In a moment") : qsTr("New")
    valueRole: Theme.rowTitle
    subLine: qsTr("Click to take one")
    label: name
    tip: description

    Connections {
        target: root.screenshot

        function onTaken() {
            root.settingsAsked();
        }
    }
}
