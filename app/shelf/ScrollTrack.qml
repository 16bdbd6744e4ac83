import QtQuick
import Ambrel.Kit

// A thin horizontal scroll bar.
Item {
    id: root

    required property ListView view
    readonly property real ratio: view.visibleArea.widthRatio

    height: 8
    visible: ratio > 0 && ratio < 1
    Accessible.ignored: true

    Rectangle {
        id: handle

        width: Math.max(32, root.width * root.ratio)
        height: drag.containsMouse || drag.pressed ? 5 : 3
        radius: height / 2
        x: root.ratio < 1 ? (root.width - width) * Math.max(0, Math.min(1, root.view.visibleArea.xPosition / (1 - root.ratio))) : 0
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.over(Theme.ink3, Theme.panel)
        opacity: drag.containsMouse || drag.pressed ? 0.9 : 0.4
    }
    MouseArea {
        id: drag

        property real grip: 0

        function follow(x: real) {
            const room = root.width - handle.width;
            const share = room > 0 ? Math.max(0, Math.min(1, (x - grip) / room)) : 0;
            root.view.contentX = root.view.originX + share * (root.view.contentWidth - root.view.width);
        }

        anchors.fill: parent
        hoverEnabled: true
        preventStealing: true
        onPressed: mouse => {
            const isOnHandle = mouse.x >= handle.x && mouse.x <= handle.x + handle.width;
            grip = isOnHandle ? mouse.x - handle.x : handle.width / 2;
            follow(mouse.x);
        }
        onPositionChanged: mouse => pressed && follow(mouse.x)
    }
}
