import QtQuick
import Ambrel.Kit
import Ambrel.Widgets

RingTile {
    required property SystemMonitor system

    name: qsTr("Memory")
    symbol: "memorychip"
    percent: system.memoryPercent
    details: system.memoryText
    shortDetails: system.memoryUsedText
    tone: Theme.violet
}
