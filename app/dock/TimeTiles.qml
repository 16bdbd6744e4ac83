import QtQuick
import Ambrel.Dock
import Ambrel.Widgets

TileSet {
    id: root

    tiles: ({
            "clock": clockTile,
            "date": dateTile
        })

    readonly property Component clockTile: ClockTile {
        clock: root.context.clock
    }
    readonly property Component dateTile: DateTile {
        clock: root.context.clock
    }
}
