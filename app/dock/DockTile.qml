import QtQuick
import Ambrel.Context
import Ambrel.Dock
import Ambrel.Kit

// One slot of the bar: the tile of its widget, in the place that the layout gives it.
Item {
    id: root

    required property WidgetContext context
    required property string item
    required property string widget
    required property string title
    required property string shortTitle
    required property string symbol
    required property string description
    required property bool isKnown
    required property rect frame
    required property int span
    required property int index
    // Of the tiles of the bar.
    property int count: 0
    readonly property string place: qsTr("%1 of %2").arg(index + 1).arg(count)
    // The pointer holds it; here is the gap that it will fill.
    readonly property bool isHeld: context.drag.item === item
    // Untyped: the lint knows neither the script methods of lists of strings nor what only a tile has.
    readonly property var lockedWidgets: context.lockedWidgets
    // Needs a licence that is not there.
    readonly property bool isLocked: lockedWidgets.includes(widget)
    readonly property var tile: host.tile
    // The bar is longer than its place.
    property bool isScrolling: false
    // Whether it goes to a new place, or is there at once.
    property bool slides: false

    // The keyboard has come to a tile that may be scrolled out of sight.
    signal revealAsked(rect frame)

    // How far from its place it was let go.
    property point fall: Qt.point(0, 0)
    property bool isFalling: false

    x: placeX.value
    y: placeY.value
    width: frame.width
    height: frame.height

    Keys.onPressed: event => {
        const forwards = event.key === Qt.Key_Right || event.key === Qt.Key_Down;
        if (event.modifiers !== Qt.ControlModifier || !forwards && event.key !== Qt.Key_Left && event.key !== Qt.Key_Up)
            return;
        root.context.model.stepItem(root.item, forwards ? 1 : -1);
        event.accepted = true;
    }

    onIsHeldChanged: {
        if (isHeld || !slides)
            return;
        isFalling = true;
        fall = context.drag.offsetFrom(root);
        isFalling = false;
        fall = Qt.point(0, 0);
    }

    MoveSpring {
        id: placeX
        isInstant: !root.slides || root.isFalling
        target: root.frame.x + root.fall.x
    }
    MoveSpring {
        id: placeY
        isInstant: !root.slides || root.isFalling
        target: root.frame.y + root.fall.y
    }

    Rectangle {
        anchors.fill: parent
        visible: root.isHeld
        radius: Theme.radiusTile
        color: "transparent"
        border.width: 1.5
        border.color: Theme.ink3
    }
    TileHost {
        id: host

        anchors.fill: parent
        visible: !root.isHeld
        context: root.context
        widget: root.isLocked ? "" : root.widget
        span: root.span
        live: root.context.widgetsActive
    }
    Loader {
        anchors.fill: parent
        active: host.tile === null
        sourceComponent: PlaceholderTile {
            id: standIn

            title: root.title
            shortTitle: root.shortTitle
            symbol: root.symbol
            description: root.description
            isKnown: root.isKnown
            isLocked: root.isLocked
            span: root.span
            place: root.place
            onMenuRequested: {
                Tips.leave(standIn);
                root.context.openTileMenu(root.item, "", "");
            }
            onUnlockAsked: root.context.unlock(root.widget)
            onActiveFocusChanged: if (activeFocus)
                root.revealAsked(root.frame)
        }
    }

    Binding {
        target: host.tile
        when: host.tile !== null
        property: "place"
        value: root.place
    }
    // A finger scrolls a bar that is longer than its place.
    DragHandler {
        target: null
        grabPermissions: PointerHandler.CanTakeOverFromAnything
        acceptedDevices: root.isScrolling ? PointerDevice.Mouse | PointerDevice.TouchPad | PointerDevice.Stylus : PointerDevice.AllDevices
        onActiveChanged: if (active) {
            Tips.leave(host.tile);
            root.context.drag.begin(root, root.widget, root.item, root.span, centroid.pressPosition);
        }
    }

    Connections {
        target: host.tile
        ignoreUnknownSignals: true

        function onPanelAsked() {
            root.context.openPanel(root.widget, root.item, root.tile.panel, root.tile.panelProperties);
        }
        function onSettingsAsked() {
            root.context.openPanel(root.widget, root.item, root.tile.settingsPanel, root.tile.panelProperties);
        }
        function onCopyAsked(text: string) {
            root.context.copyText(text);
        }
        function onAsk(question: string) {
            root.context.askBuddy(question);
        }
        function onMenuRequested() {
            Tips.leave(host.tile);
            root.context.openTileMenu(root.item, root.tile.menuText, root.tile.menuSymbol);
        }
        function onActiveFocusChanged() {
            if (root.tile.activeFocus)
                root.revealAsked(root.frame);
        }
    }
    Connections {
        target: root.context

        // Somebody else does what a click would.
        function onActivationAsked(item: string) {
            if (item === root.item && root.tile)
                root.tile.clicked();
        }
        function onMenuCommandChosen(item: string) {
            if (item === root.item && root.tile)
                root.tile.menuChosen();
        }
    }
}
