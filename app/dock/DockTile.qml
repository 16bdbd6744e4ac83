import QtQuick
import Ambrel.Agents
import Ambrel.Context
import Ambrel.Dock
import Ambrel.Kit
import Ambrel.Widgets

// One slot of the bar: the tile of its widget, in the place that the layout gives it.
Item {
    id: root

    required property WidgetContext context
    required property string item
    required property string widget
    required property string title
    required property string symbol
    required property string description
    required property rect frame
    required property int span

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

    readonly property var registry: ({
            "agents": agentsTile,
            "clock": clockTile,
            "cpu": cpuTile,
            "date": dateTile,
            "disk": diskTile,
            "memory": memoryTile,
            "network": networkTile
        })

    Component {
        id: agentsTile

        AgentsWidget {
            agents: root.context.agents
            onClicked: root.context.toggleAgents()
        }
    }
    Component {
        id: clockTile

        ClockTile {
            clock: root.context.clock
        }
    }
    Component {
        id: cpuTile

        CpuTile {
            system: root.context.system
        }
    }
    Component {
        id: dateTile

        DateTile {
            clock: root.context.clock
        }
    }
    Component {
        id: diskTile

        DiskTile {
            system: root.context.system
        }
    }
    Component {
        id: memoryTile

        MemoryTile {
            system: root.context.system
        }
    }
    Component {
        id: networkTile

        NetworkTile {
            system: root.context.system
        }
    }
    Component {
        id: placeholderTile

        PlaceholderTile {
            name: root.title
            symbol: root.symbol
            description: root.description
        }
    }

    Loader {
        id: loader

        anchors.fill: parent
        sourceComponent: root.registry[root.widget] || placeholderTile
        onLoaded: item.span = Qt.binding(() => root.span)
    }

    Connections {
        target: loader.item
        ignoreUnknownSignals: true

        function onMenuRequested() {
            Tips.leave(loader.item as Item);
            root.context.openTileMenu(root.item);
        }
        function onActiveFocusChanged() {
            const tile = loader.item as TileFrame;
            if (tile && tile.activeFocus)
                root.revealAsked(root.frame);
        }
    }
}
