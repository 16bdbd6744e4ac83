import QtQuick
import Ambrel.Window
import Ambrel.Kit

// The frame of a window: its ground and shadow, a title bar to move it by, edges to drag, and what is in it.
FocusScope {
    id: root

    required property FramedWindow window
    property string title
    property string symbol
    readonly property int margin: window.margin
    default property alias content: body.data

    focus: true

    PanelGround {
        id: ground

        anchors.fill: parent
        anchors.margins: root.margin
        radius: root.window.isSquare ? 0 : Theme.radiusTile
        shadow: "raised"
    }

    WindowEdges {
        anchors.fill: ground
        anchors.margins: -5
        visible: !root.window.isFilling
        onResizeAsked: edges => root.window.startResize(edges)
    }

    TitleBar {
        id: bar

        anchors {
            left: ground.left
            right: ground.right
            top: ground.top
        }
        title: root.title
        symbol: root.symbol
        isMaximized: root.window.isFilling
        onMoveAsked: root.window.startMove()
        onMinimizeAsked: root.window.minimize()
        onMaximizeAsked: root.window.toggleMaximized()
        onCloseAsked: root.window.closeAsked()
    }

    Item {
        id: body

        anchors {
            left: ground.left
            right: ground.right
            top: bar.bottom
            bottom: ground.bottom
            leftMargin: 1
            rightMargin: 1
            bottomMargin: 1
        }
    }
}
