import QtQuick
import Ambrel.Context
import Ambrel.Dock

// Which component draws which widget; made once for the whole bar.
QtObject {
    id: root

    required property WidgetContext context

    readonly property TileSet agents: AgentTiles {
        context: root.context
    }
    readonly property TileSet buddy: BuddyTiles {
        context: root.context
    }
    readonly property TileSet clipboard: ClipboardTiles {
        context: root.context
    }
    readonly property TileSet focus: FocusTiles {
        context: root.context
    }
    readonly property TileSet system: SystemTiles {
        context: root.context
    }
    readonly property TileSet time: TimeTiles {
        context: root.context
    }
    readonly property TileSet weather: WeatherTiles {
        context: root.context
    }
    // A family without its models is passed over.
    readonly property var tiles: Object.assign({}, agents.tiles, context.notices ? buddy.tiles : {}, context.clipboard ? clipboard.tiles : {}, context.focus ? focus.tiles : {}, system.tiles, time.tiles, context.weather ? weather.tiles : {})
}
