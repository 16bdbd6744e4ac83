import QtQuick
import Ambrel.Dock
import Ambrel.Widgets

TileSet {
    id: root

    tiles: ({
            "cpu": cpuTile,
            "disk": diskTile,
            "memory": memoryTile,
            "network": networkTile
        })

    readonly property Component cpuTile: CpuTile {
        system: root.context.system
    }
    readonly property Component diskTile: DiskTile {
        system: root.context.system
    }
    readonly property Component memoryTile: MemoryTile {
        system: root.context.system
    }
    readonly property Component networkTile: NetworkTile {
        system: root.context.system
    }
}
