import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// One part of the folder that is shown: its colour in the chart, its name and its size.
Pressable {
    id: root

    required property string partId
    required property string name
    required property string size
    required property int colorRank
    required property bool isFolder
    required property bool isHighlighted
    property bool canChoose: true
    readonly property bool isKnown: colorRank >= 0

    enabled: canChoose && isKnown && partId !== ""
    label: name + ", " + size
    tip: word.truncated ? name : ""

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: -6
        anchors.rightMargin: -6
        radius: Theme.radiusHighlight
        color: root.down ? Theme.greySoft : Theme.card
        visible: root.isHighlighted || (root.enabled && root.down)
    }
    Rectangle {
        id: swatch

        anchors.verticalCenter: parent.verticalCenter
        width: 10
        height: 10
        radius: 3
        color: root.isKnown ? Theme.sunburst[root.colorRank] : Theme.track
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
        text: root.name
        color: root.isKnown ? Theme.ink2 : Theme.ink3
        Accessible.ignored: true
    }
    Label {
        id: amount

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: root.size
        role: Theme.rowTitle
        color: root.isKnown ? Theme.ink : Theme.ink3
        Accessible.ignored: true
    }
    FocusRing {
        targetRadius: Theme.radiusHighlight
    }
}
