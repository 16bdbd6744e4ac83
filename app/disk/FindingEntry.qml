import QtQuick
import Ambrel.Disk

// A row of the findings, and the user's actions on it.
QtObject {
    id: root

    required property findingRow row
    required property bool isCurrent
    readonly property bool opens: row.kind === "group" || row.kind === "finding"

    signal pointed
    signal selectAsked(bool isSelected)
    signal openAsked
    signal asked

    function toggle() {
        if (row.isSelectable)
            selectAsked(row.checkState !== Qt.Checked);
    }
    function press() {
        if (opens)
            openAsked();
        else if (row.kind === "item")
            asked();
    }
    // Returns whether the key was handled.
    function pressKey(key: int): bool {
        if (key === Qt.Key_Space)
            toggle();
        else if (key === Qt.Key_Return || key === Qt.Key_Enter)
            press();
        else if (opens && key === (row.isOpen ? Qt.Key_Left : Qt.Key_Right))
            openAsked();
        else
            return false;
        return true;
    }
}
