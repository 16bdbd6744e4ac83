import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry
import Ambrel.Widgets

// The panels behind the system tiles.
Rectangle {
    id: root

    required property LiveModels live
    required property SystemMonitor system

    width: 1440
    height: 1110
    color: Theme.bar

    Flow {
        anchors.fill: parent
        anchors.margins: 16
        spacing: 16

        ProcessorPanel { objectName: "processor"; width: 340; height: 420; system: root.system; live: root.live }
        NetworkPanel { objectName: "network"; width: 340; height: 330; system: root.system; live: root.live }
        LatencyPanel { objectName: "latency"; width: 340; height: 338; live: root.live }
        MemoryPanel { objectName: "memory"; width: 340; height: 196; system: root.system; live: root.live }
        PowerPanel { objectName: "power"; width: 340; height: 288; live: root.live }
        WiFiPanel { objectName: "wifi"; width: 340; height: 248; live: root.live }
        VolumesPanel { objectName: "volumes"; width: 340; height: 276; live: root.live }
        BluetoothPanel { objectName: "bluetooth"; width: 340; height: 276; bluetooth: root.live.bluetooth }
        SoundPanel { objectName: "sound"; width: 340; height: 224; sound: root.live.sound }
    }
}
