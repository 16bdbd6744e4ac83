import QtQuick
import Ambrel.Kit

// The ring around its parent while the keyboard stands on it and is used.
Rectangle {
    id: root

    property bool shown: parent.activeFocus
    property int targetRadius: Theme.radiusButton

    anchors.fill: parent
    anchors.margins: -4
    radius: targetRadius + 4
    color: "transparent"
    border.width: 2
    border.color: Theme.accent
    visible: shown && KeyboardFocus.isShown
}
