import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// One part of the current folder: its colour in the chart, its name and its size.
Pressable {
    id: root

    required property diskPart row
    property bool canChoose: true
    readonly property bool isKnown: row.colorRank >= 0

    enabled: canChoose && isKnown && row.partId !== ""
    label: row.name + ", " + row.size
    tip: word.truncated ? row.name : ""

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: -6
        anchors.rightMargin: -6
        radius: Theme.radiusHighlight
        color: root.down ? Theme.greySoft : Theme.card
        visible: root.row.isHighlighted || (root.enabled && root.down)
    }
    Rectangle {
        id: swatch

        anchors.verticalCenter: parent.verticalCenter
        width: 10
        height: 10
        radius: 3
        color: root.isKnown ? Theme.sunburst[root.row.colorRank] : Theme.track
    }
    Label {
        id: word

        anchors {
            left: swatch.right
            leftMargin: Theme.space2
            right: amount.left
            rightMargin: Theme.space2
            verticalCenter: parent.verticalCenter
        }
        text: root.row.name
        color: root.isKnown ? Theme.ink2 : Theme.ink3
        Accessible.ignored: true
    }
    Label {
        id: amount

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: root.row.size
        role: Theme.rowTitle
        color: root.isKnown ? Theme.ink : Theme.ink3
        Accessible.ignored: true
    }
    FocusRing {
        targetRadius: Theme.radiusHighlight
    }
}
