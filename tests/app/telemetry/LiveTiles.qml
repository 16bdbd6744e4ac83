import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry
import Ambrel.Widgets

// Every system tile in every size.
Rectangle {
    id: root

    required property LiveModels live
    required property SystemMonitor system
    required property ClockModel clock

    width: 1264
    height: 968
    color: Theme.bar

    component Spans: Row {
        id: spans

        required property string widget
        required property Component tile

        spacing: 8

        Repeater {
            model: 4

            Loader {
                id: loader

                required property int index

                sourceComponent: spans.tile
                onLoaded: {
                    item.span = index;
                    item.objectName = spans.widget + ["Small", "Medium", "Large", "ExtraLarge"][index];
                }
            }
        }
    }

    Flow {
        anchors.fill: parent
        anchors.margins: 12
        spacing: 8

        Spans {
            widget: "clock"
            tile: ClockTile {
                clock: root.clock
            }
        }
        Spans {
            widget: "date"
            tile: DateTile {
                clock: root.clock
            }
        }
        Spans {
            widget: "gpu"
            tile: GpuWidget {
                reading: root.live.gpu
            }
        }
        Spans {
            widget: "pressure"
            tile: PressureWidget {
                reading: root.live.pressure
            }
        }
        Spans {
            widget: "diskActivity"
            tile: DiskActivityWidget {
                reading: root.live.diskActivity
            }
        }
        Spans {
            widget: "topApps"
            tile: TopAppsWidget {
                reading: root.live.topApps
                rows: root.live.topThree
            }
        }
        Spans {
            widget: "thermal"
            tile: ThermalWidget {
                reading: root.live.thermal
            }
        }
        Spans {
            widget: "battery"
            tile: BatteryWidget {
                reading: root.live.battery
            }
        }
        Spans {
            widget: "batteryHealth"
            tile: BatteryHealthWidget {
                reading: root.live.batteryHealth
            }
        }
        Spans {
            widget: "power"
            tile: PowerWidget {
                reading: root.live.power
            }
        }
        Spans {
            widget: "bluetooth"
            tile: BluetoothWidget {
                bluetooth: root.live.bluetooth
            }
        }
        Spans {
            widget: "wifi"
            tile: WiFiWidget {
                reading: root.live.wifi
            }
        }
        Spans {
            widget: "latency"
            tile: LatencyWidget {
                reading: root.live.latency
            }
        }
        Spans {
            widget: "volumes"
            tile: VolumesWidget {
                reading: root.live.volumes
                onEjectAsked: root.live.ejectFirst()
            }
        }
        Spans {
            widget: "display"
            tile: DisplayWidget {
                reading: root.live.display
            }
        }
        Spans {
            widget: "uptime"
            tile: UptimeWidget {
                reading: root.live.uptime
            }
        }
        Spans {
            widget: "ipAddress"
            tile: IPAddressWidget {
                reading: root.live.address
            }
        }
        Spans {
            widget: "volume"
            tile: VolumeWidget {
                sound: root.live.sound
            }
        }
        Spans {
            widget: "keepAwake"
            tile: KeepAwakeWidget {
                keepAwake: root.live.keepAwake
                onClicked: root.live.keepAwake.toggle()
            }
        }
        Spans {
            widget: "micMute"
            tile: MicMuteWidget {
                sound: root.live.sound
                onClicked: root.live.sound.toggleMicrophone()
            }
        }
        Spans {
            widget: "cpu"
            tile: CpuTile {
                system: root.system
            }
        }
        Spans {
            widget: "cpuChart"
            tile: CpuChartWidget {
                system: root.system
            }
        }
        Spans {
            widget: "memory"
            tile: MemoryTile {
                system: root.system
            }
        }
        Spans {
            widget: "disk"
            tile: DiskTile {
                system: root.system
            }
        }
        Spans {
            widget: "network"
            tile: NetworkTile {
                system: root.system
            }
        }
        Spans {
            widget: "networkChart"
            tile: NetworkChartWidget {
                system: root.system
            }
        }
    }
}
