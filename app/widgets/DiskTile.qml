import QtQuick
import Ambrel.Kit
import Ambrel.Widgets

RingTile {
    required property SystemMonitor system
    // What Disk Doctor has found that could go; empty while it has not looked.
    property string freeable

    name: qsTr("Disk")
    symbol: "internaldrive"
    percent: system.diskPercent
    details: freeable === "" ? system.diskText : qsTr("%1, %2").arg(system.diskText).arg(freeable)
    shortDetails: system.diskFreeText
}
