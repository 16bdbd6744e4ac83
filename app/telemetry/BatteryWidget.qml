import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// The charge of all batteries together.
LiveRing {
    name: qsTr("Battery")
    symbol: reading.symbol
    shortName: reading.fact === "" ? name : reading.fact
    fact: ""
    span: TileFrame.Small
    tone: reading.isOn ? Theme.green : Theme.chargeTone(reading.percent)
}
