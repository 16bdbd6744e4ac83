import QtQuick
import Ambrel.Kit

// The line between two groups of a menu.
Item {
    width: parent ? parent.width : implicitWidth
    implicitWidth: 230
    implicitHeight: 9

    Rectangle {
        x: Theme.space2
        width: parent.width - 2 * Theme.space2
        height: 1
        color: Theme.over(Theme.line, Theme.panel)
        anchors.verticalCenter: parent.verticalCenter
    }
}
