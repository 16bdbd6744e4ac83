import QtQuick

// What a row of the findings shows, and what is wanted of it.
QtObject {
    id: root

    required property string kind
    required property string title
    required property string detail
    required property string size
    required property string symbol
    required property string risk
    required property string riskName
    required property int checkState
    required property bool isSelectable
    required property bool isOpen
    required property bool isCurrent
    required property string note
    required property bool hasStayed
    readonly property bool opens: kind === "group" || kind === "finding"

    signal pointed
    signal selectAsked(bool isSelected)
    signal openAsked
    signal asked

    function toggle() {
        if (isSelectable)
            selectAsked(checkState !== Qt.Checked);
    }
    function press() {
        if (opens)
            openAsked();
        else if (kind === "item")
            asked();
    }
    // Whether the key meant something here.
    function pressKey(key: int): bool {
        if (key === Qt.Key_Space)
            toggle();
        else if (key === Qt.Key_Return || key === Qt.Key_Enter)
            press();
        else if ((key === Qt.Key_Right && opens && !isOpen) || (key === Qt.Key_Left && opens && isOpen))
            openAsked();
        else
            return false;
        return true;
    }
}
