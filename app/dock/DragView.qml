import QtQuick
import Ambrel.Context
import Ambrel.Kit
import Ambrel.Window

// The tile that the pointer holds, and whether letting go takes it off the bar.
Item {
    id: root

    required property PanelWindow window
    required property WidgetContext context
    readonly property TileDrag drag: context.drag

    Accessible.ignored: true

    Item {
        x: root.window.panelRect.x
        y: root.window.panelRect.y
        width: root.window.panelRect.width
        height: root.window.panelRect.height

        Shadow {
            visible: root.window.fades
            kind: "floating"
            radius: Theme.radiusTile
        }
        Rectangle {
            anchors.fill: parent
            radius: Theme.radiusTile
            color: Theme.tile
        }
        TileHost {
            id: host

            anchors.fill: parent
            context: root.context
            widget: root.drag.widget
            span: root.drag.span
            isSample: root.drag.isSample
        }
        // One that this version does not know.
        Label {
            visible: host.tile === null
            anchors.centerIn: parent
            width: Math.min(implicitWidth, parent.width - 2 * Theme.space2)
            text: root.drag.widget
            role: Theme.caption
            color: Theme.ink2
        }
        Rectangle {
            visible: root.drag.removes
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.margins: 3
            width: Scaled.px(24)
            height: Scaled.px(24)
            radius: width / 2
            color: Theme.red.soft

            Symbol {
                anchors.centerIn: parent
                name: "trash"
                size: 16
                color: Theme.red.text
            }
        }
    }
}
