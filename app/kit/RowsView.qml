import QtQuick
import Ambrel.Kit

// The rows of a panel. Up and Down walk along them, and Tab reaches those that are out of sight, too.
ListView {
    id: root

    // To be called when the row of this index gets the keyboard.
    function reveal(index: int) {
        currentIndex = index;
        positionViewAtIndex(index, ListView.Contain);
    }

    clip: true
    boundsBehavior: Flickable.StopAtBounds
    cacheBuffer: 4000
    onCurrentItemChanged: if (activeFocus && currentItem)
        currentItem.forceActiveFocus()

    ScrollBar {
        view: root
        anchors.right: parent.right
        height: parent.height
    }
}
