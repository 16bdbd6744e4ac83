import QtQuick
import Ambrel.Kit

// The little panel that says what a thing is or does, and its key.
PanelGround {
    id: root

    property string text
    property string keys
    property int maximumWidth: 320

    // Not by a positioner: it would lay out a frame later, and the window is made as large as the new text at once.
    implicitWidth: words.width + (keys === "" ? 0 : Theme.space2 + cap.width) + 2 * Theme.space3
    implicitHeight: Math.max(words.height, keys === "" ? 0 : cap.height) + 2 * 6
    radius: Theme.radiusSmall
    shadow: "floating"
    Accessible.role: Accessible.ToolTip
    Accessible.name: text

    Label {
        id: words
        x: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        text: root.text
        role: Theme.small
        wrapMode: Text.Wrap
        width: Math.min(Math.ceil(implicitWidth), root.maximumWidth)
        Accessible.ignored: true
    }
    KeyCap {
        id: cap
        x: words.x + words.width + Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        text: root.keys
    }
}
