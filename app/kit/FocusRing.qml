import QtQuick
import Ambrel.Kit

// The ring around its parent while it has the keyboard focus and the keyboard is used.
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
