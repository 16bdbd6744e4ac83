import QtQuick
import Ambrel.Kit

// The mark at the corner of something that can be chosen: chosen, or to be added.
Rectangle {
    id: root

    property bool isChosen: false
    property bool isHovered: false

    implicitWidth: 22
    implicitHeight: 22
    radius: 11
    color: Theme.panel

    Rectangle {
        anchors.fill: parent
        anchors.margins: 1
        radius: width / 2
        color: root.isChosen ? (root.isHovered ? Theme.accentHover : Theme.accent) : root.isHovered ? Theme.cardHover : Theme.greySoft

        Symbol {
            anchors.centerIn: parent
            name: root.isChosen ? "checkmark" : "plus"
            size: 15
            color: root.isChosen ? Theme.onAccent : Theme.ink
        }
    }
}
