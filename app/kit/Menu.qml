import QtQuick
import Ambrel.Kit

// A menu of rows. Up and Down walk through them, Escape closes.
FocusScope {
    id: root

    default property alias rows: column.data

    signal closeRequested

    // Puts the keyboard on the first row that can be chosen.
    function focusFirst() {
        const first = column.nextItemInFocusChain(true);
        if (first)
            first.forceActiveFocus(Qt.TabFocusReason);
    }
    function holds(item: Item): bool {
        for (let above = item; above; above = above.parent)
            if (above === column)
                return true;
        return false;
    }
    function walk(forward: bool) {
        const now = Window.activeFocusItem;
        const next = (now ?? column).nextItemInFocusChain(forward);
        if (next && root.holds(next))
            next.forceActiveFocus(Qt.TabFocusReason);
    }

    implicitWidth: 240
    implicitHeight: column.height + 2 * 5
    Accessible.role: Accessible.PopupMenu
    Keys.onDownPressed: root.walk(true)
    Keys.onUpPressed: root.walk(false)
    Keys.onEscapePressed: root.closeRequested()

    PanelGround {
        anchors.fill: parent
        radius: Theme.radiusCard
        shadow: "floating"
    }
    Column {
        id: column
        x: 5
        y: 5
        width: parent.width - 10
    }
}
