import QtQuick
import Ambrel.Kit

// The little panel that says what a thing is or does, and its key.
PanelGround {
    id: root

    property string text
    property string keys
    property int maximumWidth: 320

    implicitWidth: content.width + 2 * Theme.space3
    implicitHeight: content.height + 2 * 6
    radius: Theme.radiusSmall
    shadow: "floating"
    Accessible.role: Accessible.ToolTip
    Accessible.name: text

    Row {
        id: content
        anchors.centerIn: parent
        spacing: Theme.space2

        Label {
            text: root.text
            role: Theme.small
            wrapMode: Text.Wrap
            width: Math.min(Math.ceil(implicitWidth), root.maximumWidth)
            anchors.verticalCenter: parent.verticalCenter
            Accessible.ignored: true
        }
        KeyCap {
            text: root.keys
            anchors.verticalCenter: parent.verticalCenter
        }
    }
}
