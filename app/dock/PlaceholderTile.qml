import QtQuick
import Ambrel.Kit

// Stands for a widget that has nothing to show yet, that needs a licence, or that this version does not know.
TileFrame {
    id: root

    required property bool isKnown

    readonly property string lockNote: qsTr("Part of Tilebay Pro")

    label: isLocked ? title + ", " + qsTr("Locked") + ", " + lockNote : title + ", " + description
    tip: isLocked ? label : description
    problem: isKnown ? "" : description
    hasHeader: !isSmall
    value: isSmall ? "" : isLocked ? qsTr("Locked") : qsTr("Soon")
    valueColor: Theme.ink3
    subLine: isSmall ? "" : isLocked ? lockNote : description

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
    Symbol {
        visible: root.isLocked
        anchors.right: parent.right
        y: 1
        name: "lock.fill"
        size: 12
        color: Theme.ink2
    }
}
