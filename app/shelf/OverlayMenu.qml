import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit

// A menu over the cards; ShelfOverlay puts it in its place.
Menu {
    id: root

    required property ClipboardModel clipboard
    property bool hangsLeft: false
    readonly property bool isCentred: false

    function begin() {
        root.focusFirst();
    }
}
