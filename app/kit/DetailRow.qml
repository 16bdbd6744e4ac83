import QtQuick
import Ambrel.Kit

// A name at the left, its value at the right.
Item {
    id: root

    required property string title
    required property string figure
    property TextRole role: Theme.body

    width: parent ? parent.width : implicitWidth
    implicitWidth: 300
    implicitHeight: role.line
    Accessible.role: Accessible.StaticText
    Accessible.name: title + ", " + figure

    TipLabel {
        width: parent.width - amount.width - Theme.space2
        text: root.title
        role: root.role
        color: Theme.ink2
        Accessible.ignored: true
    }
    TipLabel {
        id: amount
        width: Math.min(implicitWidth, parent.width * 0.65)
        anchors.right: parent.right
        text: root.figure
        role: root.role
        Accessible.ignored: true
    }
}
