import QtQuick
import Ambrel.Buddy
import Ambrel.Dock

TileSet {
    id: root

    tiles: ({
            "buddy": buddyTile
        })

    readonly property Component buddyTile: BuddyWidget {
        center: root.context.notices
        live: root.context.widgetsActive
        isRow: root.context.settings.dockEdge === "bottom"
    }
}
