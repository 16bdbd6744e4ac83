import QtQuick
import Ambrel.Kit

// The ring around its parent while it has the keyboard focus and the keyboard is used.
Rectangle {
    id: root

    property bool shown: parent.activeFocus
    property int targetRadius: Theme.radiusButton
    // From the parent's edge outwards. 0 where neighbours or a clipped list leave no room.
    property int gap: 4

    anchors.fill: parent
    anchors.margins: -gap
    radius: targetRadius + gap
    color: "transparent"
    border.width: 2
    border.color: Theme.accent
    visible: shown && KeyboardFocus.isShown
}
