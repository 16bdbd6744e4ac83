import QtQuick
import Ambrel.Kit

// The thin bar of a list: where one is, and a handle to drag. Place it at the right edge of its view.
Item {
    id: root

    required property Flickable view
    readonly property real ratio: view.visibleArea.heightRatio

    width: 10
    visible: ratio > 0 && ratio < 1
    Accessible.ignored: true

    Rectangle {
        id: handle
        x: drag.containsMouse || drag.pressed ? 2 : 3
        width: drag.containsMouse || drag.pressed ? 6 : 4
        radius: width / 2
        height: Math.max(24, root.height * root.ratio)
        y: root.ratio < 1 ? (root.height - height) * root.view.visibleArea.yPosition / (1 - root.ratio) : 0
        color: Theme.over(Theme.ink3, Theme.panel)
        opacity: drag.containsMouse || drag.pressed ? 0.9 : 0.5
    }
    MouseArea {
        id: drag

        property real grip: 0

        function follow(y: real) {
            const room = root.height - handle.height;
            const share = room > 0 ? Math.max(0, Math.min(1, (y - grip) / room)) : 0;
            root.view.contentY = root.view.originY + share * (root.view.contentHeight - root.view.height);
        }

        anchors.fill: parent
        hoverEnabled: true
        preventStealing: true
        onPressed: mouse => {
            const isOnHandle = mouse.y >= handle.y && mouse.y <= handle.y + handle.height;
            grip = isOnHandle ? mouse.y - handle.y : handle.height / 2;
            follow(mouse.y);
        }
        onPositionChanged: mouse => pressed && follow(mouse.y)
    }
}
