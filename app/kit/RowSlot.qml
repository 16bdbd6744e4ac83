import QtQuick

// A row of a RowsView, with what belongs to it. It comes into view when any of that gets the keyboard.
FocusScope {
    id: root

    required property int index
    readonly property ItemView view: ListView.view

    width: view ? view.width : 0
    implicitHeight: childrenRect.height
    onActiveFocusChanged: if (activeFocus && view) {
        view.currentIndex = index;
        view.positionViewAtIndex(index, ListView.Contain);
    }
}
