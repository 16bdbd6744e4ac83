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
    value: !screenshot.face.isWaiting ? qsTr("New") : isSmall ? qsTr("Soon") : qsTr("In a moment")
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
