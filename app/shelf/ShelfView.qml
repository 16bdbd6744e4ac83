import QtQuick
import Ambrel.Base
import Ambrel.Clipboard
import Ambrel.Window
import Ambrel.Kit
import Ambrel.Shelf

// The shelf: it slides out of the upper edge of the screen. The keyboard focus is on a card; what is typed searches.
FocusScope {
    id: root

    required property PanelWindow window
    required property Presentation presentation
    required property ClipboardModel clipboard
    required property ShelfPanelController controller
    readonly property bool isOpen: presentation.isContentShown
    readonly property real unit: Theme.textScale
    readonly property bool slides: controller.isCompositing && !Theme.reducedMotion
    // 0 outside the screen, 1 in place.
    readonly property real presence: spring.value

    PresenceSpring {
        id: spring

        isIn: root.isOpen
    }

    Keys.onPressed: event => {
        const control = event.modifiers === Qt.ControlModifier;
        const key = KeyPlaces.usual(event.key, event.nativeScanCode);
        if (event.modifiers === Qt.AltModifier && key >= Qt.Key_1 && key <= Qt.Key_9)
            root.controller.pickPinned(key - Qt.Key_0);
        else if (control && event.key === Qt.Key_Z)
            root.clipboard.undoRemove();
        else if (control && event.key === Qt.Key_F)
            bar.focusSearch();
        else if (event.key === Qt.Key_Escape && root.clipboard.query !== "")
            root.clipboard.query = "";
        else if (event.key === Qt.Key_Escape)
            root.controller.dismiss();
        else
            return;
        event.accepted = true;
    }

    Connections {
        target: root.controller

        function onOpened() {
            overlay.close();
            strip.begin();
        }
    }

    Item {
        id: panel

        // The part of the panel outside the screen.
        readonly property real overhang: Math.max(0, -root.window.panelRect.y)

        x: root.window.panelRect.x
        y: root.window.panelRect.y - (root.slides ? Math.max(0, 1 - root.presence) * height : 0)
        width: root.window.panelRect.width
        height: root.window.panelRect.height
        opacity: root.slides || !root.controller.isCompositing ? 1 : spring.opacity
        visible: root.presence > 0 || !root.controller.isCompositing
        Accessible.role: Accessible.Dialog
        Accessible.name: qsTr("Clipboard")

        PanelGround {
            anchors.fill: parent
            radius: Theme.radiusBar
        }
        HoverHandler {
            onHoveredChanged: root.controller.setPointerInside(hovered)
        }
        // Clicks must not reach windows below.
        TapHandler {
            gesturePolicy: TapHandler.ReleaseWithinBounds
        }

        ShelfBar {
            id: bar

            x: Theme.space4
            y: panel.overhang + 14
            width: parent.width - 2 * Theme.space4
            clipboard: root.clipboard
            onWalked: key => {
                if (key === Qt.Key_Left || key === Qt.Key_Right)
                    strip.step(key === Qt.Key_Right ? 1 : -1);
                else
                    strip.forceActiveFocus(Qt.TabFocusReason);
            }
            onAccepted: strip.pickCurrent()
            onActed: key => strip.actOn(key)
            onMenuAsked: overlay.openMenu(panel.width - Theme.space4, bar.y + bar.height + Theme.space1)
        }
        ClipStrip {
            id: strip

            y: panel.overhang + Math.round(64 * root.unit) - margin
            width: parent.width
            focus: true
            clipboard: root.clipboard
            isSearching: bar.isSearching
            onPicked: id => root.controller.pick(id)
            onPreviewAsked: id => overlay.openPreview(id)
            onMenuAsked: (id, x, y) => {
                const place = strip.mapToItem(panel, x, y);
                overlay.openClipMenu(id, place.x, place.y);
            }
            onTyped: text => bar.type(text)
            onSearchAsked: bar.focusSearch()
            onDragAsked: (id, card) => root.controller.dragOut(id, card)
        }
        EmptyState {
            anchors.horizontalCenter: parent.horizontalCenter
            y: strip.y + (strip.height - height) / 2
            visible: root.clipboard.visibleCount === 0
            symbol: root.clipboard.query !== "" ? "magnifyingglass" : "doc.on.clipboard"
            title: root.clipboard.face.emptyTitle
            sentence: root.clipboard.face.emptySentence
        }
        ShelfFooter {
            x: Theme.space4
            y: parent.height - height - Theme.space4
            width: parent.width - 2 * Theme.space4
            summary: root.clipboard.face.summary
        }
        ShelfOverlay {
            id: overlay

            anchors.fill: parent
            anchors.topMargin: panel.overhang
            clipboard: root.clipboard
            onSettingsAsked: root.controller.askForSettings()
            onPicked: id => root.controller.pick(id)
            onTextPicked: id => {
                root.clipboard.copyAsText(id);
                root.controller.close();
            }
            onClosed: strip.forceActiveFocus()
        }
    }
}
