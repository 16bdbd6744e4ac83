import QtQuick
import Ambrel.Kit
import Ambrel.Widgets

RingTile {
    required property SystemMonitor system

    name: qsTr("Disk")
    symbol: "internaldrive"
    percent: system.diskPercent
    details: system.diskText
    shortDetails: system.diskFreeText
}
