import QtQuick
import Ambrel.Kit

// One command of a menu, with its symbol and key.
Pressable {
    id: root

    property string text
    property string symbol
    property string keys
    // It removes something.
    property bool isCareful: false
    // The state of a command that is switched on and off.
    property bool isChecked: false
    readonly property color ink: !enabled ? Theme.ink3 : isCareful ? Theme.red.text : Theme.ink

    label: text
    accessibleRole: Accessible.MenuItem
    width: parent ? parent.width : implicitWidth
    implicitWidth: 230
    implicitHeight: Math.max(32, title.height + Theme.space3)

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusSmall
        visible: root.enabled && (root.hovered || root.down || root.activeFocus)
        color: root.down ? Theme.greySoft : Theme.cardHover
    }
    Symbol {
        id: icon
        x: 10
        name: root.isChecked ? "checkmark" : root.symbol
        size: 16
        color: root.isCareful ? root.ink : root.enabled ? Theme.ink2 : Theme.ink3
        anchors.verticalCenter: parent.verticalCenter
    }
    TipLabel {
        id: title
        anchors {
            left: icon.right
            leftMargin: 10
            right: shortcut.left
            rightMargin: Theme.space2
            verticalCenter: parent.verticalCenter
        }
        text: root.text
        role: Theme.body
        color: root.ink
        height: Theme.rowTitle.line
        Accessible.ignored: true
    }
    Label {
        id: shortcut
        anchors.right: parent.right
        anchors.rightMargin: Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        text: root.keys
        role: Theme.subLine
        color: Theme.ink2
        Accessible.ignored: true
    }
}
