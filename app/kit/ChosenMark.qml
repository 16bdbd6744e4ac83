import QtQuick
import Ambrel.Kit

// The mark at the corner of something that can be chosen: chosen, to be added, or locked.
Rectangle {
    id: root

    property bool isChosen: false
    property bool isHovered: false
    property bool isLocked: false

    implicitWidth: Scaled.px(22)
    implicitHeight: implicitWidth
    radius: width / 2
    color: Theme.panel

    Rectangle {
        anchors.fill: parent
        anchors.margins: 1
        radius: width / 2
        color: root.isChosen ? (root.isHovered ? Theme.accentHover : Theme.accent) : root.isHovered ? Theme.cardHover : Theme.greySoft

        Symbol {
            anchors.centerIn: parent
            name: root.isChosen ? "checkmark" : root.isLocked ? "lock.fill" : "plus"
            size: root.isLocked ? 12 : 15
            color: root.isChosen ? Theme.onAccent : Theme.ink
        }
    }
}
