import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit
import Ambrel.Shelf

// The cards in a row, newest first. The arrows walk, Return picks, Delete removes, Space previews; letters search.
FocusScope {
    id: root

    required property ClipboardModel clipboard
    // The focus is in the search field, whose keys act on the current card.
    property bool isSearching: false
    // Keys repeat faster than the list scrolls: it jumps, so that the current card stays in view.
    property bool isHurried: false
    // Room around the cards for the focus ring.
    readonly property int margin: 8
    // The focused card shows its secret only after the user has moved the focus, not right after opening.
    property bool hasWalked: false
    readonly property string currentId: clipboard.focusedItem

    signal picked(string id)
    signal previewAsked(string id)
    signal menuAsked(string id, real x, real y)
    signal typed(string text)
    signal searchAsked
    signal dragAsked(string id, Item card)

    function begin() {
        hasWalked = false;
        goTo(0);
        list.positionViewAtBeginning();
        forceActiveFocus();
    }
    function goTo(row: int) {
        const last = root.clipboard.visibleCount - 1;
        const next = Math.max(0, Math.min(last, row));
        list.currentIndex = last < 0 ? -1 : next;
        root.clipboard.focusedItem = root.clipboard.items.idAt(list.currentIndex);
    }
    // The rows are about to change: focus the first one.
    function startOver() {
        hasWalked = false;
        list.currentIndex = 0;
        root.clipboard.focusedItem = "";
    }
    function step(by: int) {
        hasWalked = true;
        goTo(list.currentIndex + by);
        if (isHurried)
            list.positionViewAtIndex(list.currentIndex, ListView.Contain);
    }
    function pickCurrent() {
        if (currentId !== "")
            picked(currentId);
    }
    // After the rows have changed: the same clip, or the one in its place.
    function settle() {
        const row = root.clipboard.items.rowOf(root.clipboard.focusedItem);
        if (row >= 0)
            list.currentIndex = row;
        else
            goTo(Math.max(0, list.currentIndex));
    }
    function openMenu() {
        const card = list.currentItem;
        if (!card)
            return;
        const place = card.mapToItem(root, card.width / 2, card.height / 3);
        root.menuAsked(root.currentId, place.x, place.y);
    }
    function actOn(key: int) {
        if (key === Qt.Key_Delete)
            root.clipboard.remove(root.currentId);
        else if (key === Qt.Key_Space)
            root.previewAsked(root.currentId);
        else
            root.clipboard.togglePin(root.currentId);
    }
    function act(event: var): bool {
        const control = event.modifiers === Qt.ControlModifier;
        const plain = event.modifiers === Qt.NoModifier || event.modifiers === Qt.KeypadModifier;
        isHurried = event.isAutoRepeat;
        if (plain && event.key === Qt.Key_Left)
            step(-1);
        else if (plain && event.key === Qt.Key_Right)
            step(1);
        else if (plain && event.key === Qt.Key_Up)
            root.searchAsked();
        else if (plain && event.key === Qt.Key_PageUp)
            step(-6);
        else if (plain && event.key === Qt.Key_PageDown)
            step(6);
        else if (plain && event.key === Qt.Key_Home)
            step(-root.clipboard.visibleCount);
        else if (plain && event.key === Qt.Key_End)
            step(root.clipboard.visibleCount);
        else if (plain && (event.key === Qt.Key_Return || event.key === Qt.Key_Enter) || control && event.key === Qt.Key_C)
            pickCurrent();
        else if (plain && (event.key === Qt.Key_Delete || event.key === Qt.Key_Space) || control && event.key === Qt.Key_P)
            actOn(event.key);
        else if (event.key === Qt.Key_Menu || event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier)
            openMenu();
        else if (event.key === Qt.Key_Backspace && root.clipboard.query !== "")
            root.searchAsked();
        else if ((plain || event.modifiers === Qt.ShiftModifier) && event.text.length > 0 && event.text > " " && event.key !== Qt.Key_Escape && event.key !== Qt.Key_Backspace)
            root.typed(event.text);
        else
            return false;
        return true;
    }

    implicitHeight: Scaled.px(184) + 2 * margin
    activeFocusOnTab: true
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Clips")
    Keys.onPressed: event => event.accepted = root.act(event)

    Connections {
        target: root.clipboard

        function onVisibleItemsChanged() {
            root.settle();
        }
        // A clip that was copied here comes first and gets the focus.
        function onFocusedItemChanged() {
            const row = root.clipboard.items.rowOf(root.clipboard.focusedItem);
            if (row >= 0)
                list.currentIndex = row;
        }
        function onQueryChanged() {
            root.startOver();
        }
        function onFilterChanged() {
            root.startOver();
            list.positionViewAtBeginning();
        }
    }

    // The list places its cards at its own edge, so the room for the ring is around it.
    Item {
        anchors.fill: parent
        clip: true

        ListView {
            id: list

            anchors.fill: parent
            anchors.topMargin: root.margin
            anchors.bottomMargin: root.margin
            orientation: ListView.Horizontal
            model: root.clipboard.items
            spacing: Theme.space2
            // Margins are ignored by positionViewAtBeginning.
            header: Item {
                width: Theme.space4
                height: 1
            }
            footer: Item {
                width: Theme.space4
                height: 1
            }
            cacheBuffer: 320
            reuseItems: true
            keyNavigationEnabled: false
            // Touch scrolls; the mouse drags cards out.
            interactive: !mouse.hovered
            boundsBehavior: Flickable.StopAtBounds
            highlightMoveDuration: Theme.reducedMotion || root.isHurried ? 0 : Theme.hoverDuration
            highlightMoveVelocity: -1
            preferredHighlightBegin: Theme.space4
            preferredHighlightEnd: width - Theme.space4
            highlightRangeMode: ListView.ApplyRange

            delegate: ClipCard {
                height: ListView.view.height
                isUnderKeyboard: ListView.isCurrentItem && (root.activeFocus || root.isSearching)
                isRevealed: isUnderKeyboard && root.hasWalked
                clipboard: root.clipboard
                onPicked: root.picked(face.clipId)
                onMenuAsked: (x, y) => {
                    const place = mapToItem(root, x, y);
                    root.menuAsked(face.clipId, place.x, place.y);
                }
                onDragAsked: card => root.dragAsked(face.clipId, card)
            }

            WheelHandler {
                acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
                orientation: Qt.Vertical
                onWheel: event => scroll.by(-event.angleDelta.y)
            }
            WheelHandler {
                acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
                orientation: Qt.Horizontal
                onWheel: event => scroll.by(-event.angleDelta.x)
            }
            HoverHandler {
                id: mouse

                acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            }
        }
    }
    SmoothScroll {
        id: scroll
        view: list
    }
    ScrollTrack {
        view: list
        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
            leftMargin: Theme.space4
            rightMargin: Theme.space4
            bottomMargin: -Theme.space1
        }
    }
}
