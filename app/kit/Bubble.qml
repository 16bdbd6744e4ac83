import QtQuick
import Ambrel.Kit

// What Buddy says: a panel whose tail points at the middle of his tile. Its children are inside the padding.
FocusScope {
    id: root

    // Towards which side the tail points: "bottom", "left" or "right"; "" for none.
    property string tailSide: "bottom"
    // Where it points, from the bubble's left edge, or from its upper one when the tail is at a side.
    property real tailAt: (tailSide === "bottom" ? width : height) / 2
    property int padding: Theme.space4
    readonly property int shadowMargin: 48
    // How far it reaches beyond the panel, whose border it continues.
    readonly property int tailReach: 13
    readonly property bool isTailBelow: tailSide === "bottom"
    readonly property bool isTailBeside: tailSide === "left" || tailSide === "right"
    default property alias content: body.data

    signal closeRequested

    implicitWidth: 320 + (isTailBeside ? tailReach : 0)
    implicitHeight: body.childrenRect.height + 2 * padding + (isTailBelow ? tailReach : 0)
    Accessible.role: Accessible.Dialog
    Keys.onEscapePressed: root.closeRequested()

    PanelGround {
        id: ground
        x: root.tailSide === "left" ? root.tailReach : 0
        width: Math.max(0, parent.width - (root.isTailBeside ? root.tailReach : 0))
        height: Math.max(0, parent.height - (root.isTailBelow ? root.tailReach : 0))
    }
    BubbleTail {
        id: tail

        function along(length: real): real {
            return Math.max(Theme.radiusPanel, Math.min(length - 28 - Theme.radiusPanel, root.tailAt - 14));
        }

        visible: root.tailSide !== ""
        side: root.tailSide
        x: root.isTailBelow ? along(root.width) : root.tailSide === "right" ? ground.width - 1 : 0
        y: root.isTailBelow ? ground.height - 1 : along(root.height)
        color: ground.color
        lineColor: ground.border.color
    }
    Item {
        id: body
        x: ground.x + root.padding
        y: root.padding
        width: ground.width - 2 * root.padding
        height: ground.height - 2 * root.padding
    }
}
