import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// The charge of all batteries together.
LiveRing {
    required property LiveModels readings

    reading: readings.battery
    panel: Qt.resolvedUrl("PowerPanel.qml")
    symbol: reading.symbol
    shortName: reading.fact === "" ? name : reading.fact
    fact: ""
    tone: reading.isOn ? Theme.green : Theme.chargeTone(reading.percent)
}
