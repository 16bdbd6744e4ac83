import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit
import Ambrel.Shelf

// The top bar of the shelf: search, filters and menu.
FocusScope {
    id: root

    required property ClipboardModel clipboard
    readonly property bool isSearching: search.input.activeFocus

    // An arrow key in the search.
    signal walked(int key)
    // Return in the search.
    signal accepted
    // A key that an empty search field does not use, for the current card.
    signal acted(int key)
    signal menuAsked

    function focusSearch() {
        search.input.forceActiveFocus(Qt.ShortcutFocusReason);
        search.selectAll();
    }
    // Appends text that was typed while the cards had the focus.
    function type(text: string) {
        search.input.forceActiveFocus(Qt.OtherFocusReason);
        search.input.insert(search.input.length, text);
    }

    implicitHeight: Math.max(36, search.implicitHeight)

    Field {
        id: search

        width: Scaled.px(232)
        anchors.verticalCenter: parent.verticalCenter
        isSearch: true
        walks: true
        hint: qsTr("Search the clipboard")
        onTextChanged: root.clipboard.query = text
        onWalked: key => root.walked(key)
        onAccepted: root.accepted()
        onActed: key => root.acted(key)

        Connections {
            target: root.clipboard

            function onQueryChanged() {
                if (search.text !== root.clipboard.query)
                    search.text = root.clipboard.query;
            }
        }
    }
    FilterChips {
        anchors {
            left: search.right
            leftMargin: Theme.space5
            right: menuButton.left
            rightMargin: Theme.space3
            verticalCenter: parent.verticalCenter
        }
        clipboard: root.clipboard
    }
    IconButton {
        id: menuButton

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        symbol: "ellipsis"
        label: qsTr("Clean up and collections")
        onClicked: root.menuAsked()
    }
}
