import QtQuick
import Ambrel.Disk
import Ambrel.Kit
import Ambrel.Telemetry

// How full the home's disk is. A click opens Disk Doctor.
RingTile {
    required property LiveModels readings
    required property DiskCleaner disk
    required property DiskArea area

    readonly property tileReading reading: readings.disk.reading

    percent: reading.percent
    details: disk.freeableText === "" ? reading.tip : qsTr("%1, %2").arg(reading.tip).arg(disk.freeableText)
    shortDetails: reading.subLine
    onActivated: area.open()
}
