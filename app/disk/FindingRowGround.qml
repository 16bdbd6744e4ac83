import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// The background of every row of the findings: it lights up under the pointer and shows the keyboard focus.
Item {
    id: root

    required property FindingEntry row
    property real topInset: 0
    property bool canPress: true
    readonly property real middle: topInset + (height - topInset) / 2
    readonly property alias hovered: hover.hovered

    Rectangle {
        anchors {
            fill: parent
            leftMargin: Theme.space3
            rightMargin: Theme.space3
            topMargin: root.topInset
        }
        radius: Theme.radiusButton
        visible: root.canPress && (hover.hovered || tap.pressed || root.row.isCurrent)
        color: tap.pressed ? Theme.greySoft : Theme.card
        border.width: root.row.isCurrent ? 2 : 0
        border.color: Theme.accent
    }
    HoverHandler {
        id: hover
    }
    TapHandler {
        id: tap

        enabled: root.canPress
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: {
            root.row.pointed();
            root.row.press();
        }
    }
}
