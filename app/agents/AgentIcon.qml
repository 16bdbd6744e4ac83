import QtQuick
import Ambrel.Agents
import Ambrel.Kit

// The icon of a session's tool; where the tool has none, the symbol of its kind in a box.
Item {
    id: root

    required property string symbol
    required property string icon

    implicitWidth: 32
    implicitHeight: 32

    Rectangle {
        anchors.fill: parent
        visible: root.icon === ""
        radius: Theme.radiusButton
        color: Theme.card
        border.width: 1
        border.color: Theme.line

        Symbol {
            anchors.centerIn: parent
            name: root.symbol
            size: 18
            color: Theme.ink2
        }
    }
    Image {
        anchors.centerIn: parent
        width: 30
        height: 30
        visible: root.icon !== ""
        source: root.icon
        sourceSize.width: 30
        sourceSize.height: 30
        fillMode: Image.PreserveAspectFit
    }
}
