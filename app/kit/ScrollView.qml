import QtQuick
import Ambrel.Kit

// Content taller than its place. It scrolls by wheel, by its bar, by keys, and to what has the keyboard focus.
FocusScope {
    id: root

    property real padding: 0
    property alias contentY: flick.contentY
    default property alias content: holder.data

    function scrollBy(distance: real) {
        flick.contentY = Math.max(0, Math.min(flick.contentHeight - flick.height, flick.contentY + distance));
    }
    function reveal(item: Item) {
        const at = item.mapToItem(holder, 0, 0).y + padding;
        if (at < flick.contentY)
            flick.contentY = Math.max(0, at - 8);
        else if (at + item.height > flick.contentY + flick.height)
            flick.contentY = Math.min(flick.contentHeight - flick.height, at + item.height - flick.height + 8);
    }
    function holds(item: Item): bool {
        for (let above = item; above; above = above.parent)
            if (above === holder)
                return true;
        return false;
    }

    Keys.onPressed: event => {
        const distance = {
            [Qt.Key_Up]: -40,
            [Qt.Key_Down]: 40,
            [Qt.Key_PageUp]: -flick.height,
            [Qt.Key_PageDown]: flick.height,
            [Qt.Key_Home]: -flick.contentHeight,
            [Qt.Key_End]: flick.contentHeight
        }[event.key];
        const before = flick.contentY;
        if (distance !== undefined && flick.contentHeight > flick.height)
            scrollBy(distance);
        // At its end a key is for what is around it, such as the next page.
        event.accepted = flick.contentY !== before;
    }

    Flickable {
        id: flick
        anchors.fill: parent
        clip: true
        contentWidth: width
        contentHeight: holder.childrenRect.height + 2 * root.padding
        boundsBehavior: Flickable.StopAtBounds

        Item {
            id: holder
            x: root.padding
            y: root.padding
            width: flick.width - 2 * root.padding
            height: childrenRect.height
        }
    }
    ScrollBar {
        view: flick
        anchors {
            right: parent.right
            rightMargin: 1
            top: parent.top
            bottom: parent.bottom
            topMargin: 8
            bottomMargin: 8
        }
    }
    Connections {
        target: root.Window.window
        function onActiveFocusItemChanged() {
            const item = root.Window.window.activeFocusItem;
            if (item && root.holds(item))
                root.reveal(item);
        }
    }
}
