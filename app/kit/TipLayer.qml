import QtQuick
import Ambrel.Kit

// Shows the wanted tip inside its window, above the item if there is room, else below it. Fill the window with it.
Item {
    id: root

    readonly property bool isWanted: Tips.window !== null && Tips.window === root.Window.window && Tips.text !== ""

    z: 1000

    function place() {
        if (!isWanted)
            return;
        const item = Tips.item;
        const at = item.mapToItem(root, 0, 0);
        const left = at.x + (item.width - tip.width) / 2;
        tip.x = Math.round(Math.max(4, Math.min(root.width - tip.width - 4, left)));
        tip.y = Math.round(at.y - tip.height - 8 >= 4 ? at.y - tip.height - 8 : at.y + item.height + 8);
    }

    onIsWantedChanged: place()

    Connections {
        target: Tips
        function onChanged() {
            root.place();
        }
    }
    Tip {
        id: tip
        visible: root.isWanted
        text: Tips.text
        keys: Tips.keys
        onWidthChanged: root.place()
    }
}
