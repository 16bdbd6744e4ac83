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
    required property string symbol
    required property string description
    required property bool isKnown
    required property rect frame
    required property int span
    // Untyped: the lint knows neither the script methods of lists of strings nor what only a tile has.
    readonly property var lockedWidgets: context.lockedWidgets
    readonly property var tile: host.tile
    // Whether it goes to a new place, or is there at once.
    property bool slides: false

    // The keyboard has come to a tile that may be scrolled out of sight.
    signal revealAsked(rect frame)

    x: frame.x
    y: frame.y
    width: frame.width
    height: frame.height

    component Slide: NumberAnimation {
        duration: Theme.openDuration
        easing.type: Easing.OutCubic
    }

    Behavior on x {
        enabled: root.slides

        Slide {}
    }
    Behavior on y {
        enabled: root.slides

        Slide {}
    }

    TileHost {
        id: host

        anchors.fill: parent
        context: root.context
        widget: root.widget
        span: root.span
        live: root.context.widgetsActive
        isLocked: root.lockedWidgets.includes(root.widget)
    }
    Loader {
        anchors.fill: parent
        active: host.tile === null
        sourceComponent: PlaceholderTile {
            id: standIn

            name: root.title
            symbol: root.symbol
            description: root.description
            isKnown: root.isKnown
            span: root.span
            onMenuRequested: {
                Tips.leave(standIn);
                root.context.openTileMenu(root.item, "", "");
            }
            onActiveFocusChanged: if (activeFocus)
                root.revealAsked(root.frame)
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
        function onUnlockAsked() {
            root.context.unlock(root.widget);
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
