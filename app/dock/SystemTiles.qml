import QtQuick
import Ambrel.Dock
import Ambrel.Telemetry
import Ambrel.Widgets

TileSet {
    id: root

    tiles: ({
            "battery": batteryTile,
            "batteryHealth": batteryHealthTile,
            "bluetooth": bluetoothTile,
            "cpu": cpuTile,
            "cpuChart": cpuChartTile,
            "disk": diskTile,
            "diskActivity": diskActivityTile,
            "display": displayTile,
            "gpu": gpuTile,
            "ipAddress": ipAddressTile,
            "keepAwake": keepAwakeTile,
            "latency": latencyTile,
            "memory": memoryTile,
            "memoryPressure": memoryPressureTile,
            "micMute": micMuteTile,
            "network": networkTile,
            "networkChart": networkChartTile,
            "power": powerTile,
            "thermal": thermalTile,
            "topApps": topAppsTile,
            "uptime": uptimeTile,
            "volume": volumeTile,
            "volumes": volumesTile,
            "wifi": wifiTile
        })

    readonly property Component cpuTile: CpuTile {
        system: root.context.system
    }
    readonly property Component cpuChartTile: CpuChartWidget {
        system: root.context.system
    }
    readonly property Component diskTile: DiskTile {
        system: root.context.system
        freeable: root.context.disk ? root.context.disk.freeableText : ""
    }
    readonly property Component memoryTile: MemoryTile {
        system: root.context.system
    }
    readonly property Component networkTile: NetworkTile {
        system: root.context.system
    }
    readonly property Component networkChartTile: NetworkChartWidget {
        system: root.context.system
    }
    readonly property Component gpuTile: GpuWidget {
        reading: root.context.live.gpu
    }
    readonly property Component memoryPressureTile: PressureWidget {
        reading: root.context.live.pressure
    }
    readonly property Component diskActivityTile: DiskActivityWidget {
        reading: root.context.live.diskActivity
    }
    readonly property Component thermalTile: ThermalWidget {
        reading: root.context.live.thermal
    }
    readonly property Component batteryTile: BatteryWidget {
        reading: root.context.live.battery
    }
    readonly property Component batteryHealthTile: BatteryHealthWidget {
        reading: root.context.live.batteryHealth
    }
    readonly property Component powerTile: PowerWidget {
        reading: root.context.live.power
    }
    readonly property Component wifiTile: WiFiWidget {
        reading: root.context.live.wifi
    }
    readonly property Component latencyTile: LatencyWidget {
        reading: root.context.live.latency
    }
    readonly property Component ipAddressTile: IPAddressWidget {
        reading: root.context.live.address
    }
    readonly property Component uptimeTile: UptimeWidget {
        reading: root.context.live.uptime
    }
    readonly property Component displayTile: DisplayWidget {
        reading: root.context.live.display
    }
    readonly property Component topAppsTile: TopAppsWidget {
        reading: root.context.live.topApps
        rows: root.context.live.topThree
    }
    readonly property Component volumesTile: VolumesWidget {
        reading: root.context.live.volumes
        onEjectAsked: root.context.live.ejectFirst()
    }
    readonly property Component bluetoothTile: BluetoothWidget {
        bluetooth: root.context.live.bluetooth
    }
    readonly property Component volumeTile: VolumeWidget {
        sound: root.context.live.sound
    }
    readonly property Component micMuteTile: MicMuteWidget {
        sound: root.context.live.sound
    }
    readonly property Component keepAwakeTile: KeepAwakeWidget {
        keepAwake: root.context.live.keepAwake
    }
}
