import QtQuick
import Ambrel.Kit

// Smooth scrolling by the mouse wheel.
NumberAnimation {
    id: root

    required property ListView view

    // In eighths of a degree: 120 is one step of the wheel.
    function by(angle: real) {
        const from = running ? to : view.contentX;
        const first = view.originX;
        const last = Math.max(first, view.originX + view.contentWidth - view.width);
        const next = Math.max(first, Math.min(last, from + angle));
        stop();
        if (Theme.reducedMotion) {
            view.contentX = next;
            return;
        }
        to = next;
        start();
    }

    target: view
    property: "contentX"
    duration: Theme.hoverDuration
    easing.type: Easing.OutCubic
}
