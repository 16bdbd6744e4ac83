import QtQuick
import Ambrel.Kit

// What Buddy says: a panel whose tail points down at the middle of its tile. Its children lie inside the padding.
FocusScope {
    id: root

    // Where the tail points, from the bubble's left edge.
    property real tailX: width / 2
    property int padding: Theme.space4
    readonly property int shadowMargin: 48
    readonly property int tailHeight: 14
    default property alias content: body.data

    signal closeRequested

    implicitWidth: 320
    implicitHeight: body.childrenRect.height + 2 * padding + tailHeight - 1
    Accessible.role: Accessible.Dialog
    Keys.onEscapePressed: root.closeRequested()

    PanelGround {
        id: ground
        width: parent.width
        height: parent.height - root.tailHeight + 1
    }
    BubbleTail {
        x: Math.max(Theme.radiusPanel, Math.min(root.width - width - Theme.radiusPanel, root.tailX - width / 2))
        y: ground.height - 1
        color: ground.color
        lineColor: ground.border.color
    }
    Item {
        id: body
        x: root.padding
        y: root.padding
        width: parent.width - 2 * root.padding
        height: ground.height - 2 * root.padding
    }
}
