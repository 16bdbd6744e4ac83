import QtQuick
import Ambrel.Kit
import Ambrel.Time

// The seconds since 1970. A click copies them, the button converts others.
TileFrame {
    id: root

    required property TimeReadingModel unixTime

    settingsPanel: Qt.resolvedUrl("UnixTimePanel.qml")
    menuText: qsTr("Convert a Time…")
    menuSymbol: "arrow.left.arrow.right"
    onMenuChosen: settingsAsked()
    onActivated: copyAsked(unixTime.face.value)
    hasCaptionSymbol: isWide
    // Without the figure: a screen reader would speak without an end.
    label: title + ", " + description
    tip: description
    value: unixTime.face.value
    widestValue: "0000000000"
    subLine: isNarrow ? qsTr("seconds") : unixTime.face.subLine

    IconButton {
        visible: !root.isSmall
        anchors.right: parent.right
        anchors.rightMargin: -6
        y: -6
        size: 24
        symbolSize: 16
        symbol: "arrow.left.arrow.right"
        label: qsTr("Convert a time")
        onClicked: root.settingsAsked()
    }
}
