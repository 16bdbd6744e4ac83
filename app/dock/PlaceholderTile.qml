import QtQuick
import Ambrel.Dock
import Ambrel.Kit

// Stands for a widget that has nothing to show yet, or that this version does not know.
TileFrame {
    id: root

    required property bool isKnown

    label: name + ", " + description
    tip: description
    problem: isKnown ? "" : description
    hasHeader: !isSmall
    value: isSmall ? "" : qsTr("Soon")
    valueColor: Theme.ink3
    subLine: isSmall ? "" : description

    Symbol {
        visible: root.isSmall && root.isKnown
        anchors.horizontalCenter: parent.horizontalCenter
        y: 6
        name: root.symbol
        size: 24
        color: Theme.ink3
    }
    Label {
        visible: root.isSmall && root.isKnown
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        width: Math.min(implicitWidth, parent.width)
        text: root.name
        role: Theme.caption
        color: Theme.ink2
        Accessible.ignored: true
    }
}
