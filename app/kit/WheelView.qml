import QtQuick

// A view that scrolls by wheel and by finger, and leaves the mouse to what is in it, which may be dragged out.
Flickable {
    id: root

    readonly property bool isRow: flickableDirection === Flickable.HorizontalFlick
    readonly property bool isScrolling: isRow ? contentWidth > width : contentHeight > height
    // What one notch of the wheel scrolls.
    property real notch: 60

    function scrollBy(step: real) {
        if (isRow)
            contentX = Math.max(0, Math.min(contentWidth - width, contentX + step));
        else
            contentY = Math.max(0, Math.min(contentHeight - height, contentY + step));
    }

    interactive: false
    flickableDirection: Flickable.VerticalFlick

    WheelHandler {
        enabled: root.isScrolling
        orientation: Qt.Vertical
        onWheel: event => root.scrollBy(-event.angleDelta.y / 120 * root.notch)
    }
    DragHandler {
        property real done: 0

        target: null
        enabled: root.isScrolling
        acceptedDevices: PointerDevice.TouchScreen
        onActiveChanged: done = 0
        onActiveTranslationChanged: {
            const moved = root.isRow ? activeTranslation.x : activeTranslation.y;
            root.scrollBy(done - moved);
            done = moved;
        }
    }
}
