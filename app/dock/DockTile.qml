import QtQuick
import Ambrel.Context
import Ambrel.Dock
import Ambrel.Kit

// One slot of the bar: the tile of its widget, in the place that the layout gives it.
Item {
    id: root

    required property WidgetContext context
    required property TileRegistry registry
    required property string item
    required property string widget
    required property string title
    required property string symbol
    required property string description
    required property bool isKnown
    required property rect frame
    required property int span
    readonly property Item tile: loader.item as Item

    // The keyboard has come to a tile that may be scrolled out of sight.
    signal revealAsked(rect frame)

    x: frame.x
    y: frame.y
    width: frame.width
    height: frame.height

    Behavior on x {
        enabled: root.context.widgetsActive && !Theme.reducedMotion

        NumberAnimation {
            duration: Theme.openDuration
            easing.type: Easing.OutCubic
        }
    }

    Component {
        id: placeholderTile

        PlaceholderTile {
            name: root.title
            symbol: root.symbol
            description: root.description
            isKnown: root.isKnown
        }
    }

    Loader {
        id: loader

        anchors.fill: parent
        sourceComponent: root.registry.tiles[root.widget] || placeholderTile
        onLoaded: item.span = Qt.binding(() => root.span)
    }

    Connections {
        target: loader.item
        ignoreUnknownSignals: true

        function onClicked() {
            root.context.activate(root.widget, root.item);
        }
        function onSettingsRequested() {
            root.context.openSettings(root.widget, root.item);
        }
        function onMenuRequested() {
            Tips.leave(root.tile);
            root.context.openTileMenu(root.item);
        }
        function onActiveFocusChanged() {
            if (root.tile.activeFocus)
                root.revealAsked(root.frame);
        }
    }
}
