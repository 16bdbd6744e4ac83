import QtQuick
import Ambrel.Disk
import Ambrel.Kit
import Ambrel.Telemetry

// How full the home's disk is. A click opens Disk Doctor.
RingTile {
    required property SystemMonitor system
    required property DiskCleaner disk
    required property DiskArea area

    percent: system.diskPercent
    details: disk.freeableText === "" ? system.diskText : qsTr("%1, %2").arg(system.diskText).arg(disk.freeableText)
    shortDetails: system.diskFreeText
    onActivated: area.open()
}
