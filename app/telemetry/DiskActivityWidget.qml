import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry
import Ambrel.Widgets

// What is read from all disks, and what is written to them.
LiveTile {
    id: root

    readonly property bool hasRates: !hasMessage && reading.unit !== ""

    name: isSmall ? qsTr("Activity") : qsTr("Disk Activity")
    symbol: "internaldrive.fill"
    hasFigures: !hasRates
    label: hasRates ? qsTr("%1, read %2 %3, written %4 %5").arg(qsTr("Disk Activity")).arg(reading.value).arg(reading.unit).arg(reading.secondValue).arg(reading.secondUnit) : qsTr("Disk Activity, %1").arg(reading.spoken)

    Column {
        visible: root.hasRates
        y: root.hasHeader ? Theme.caption.line : 8
        spacing: 1

        NetworkRate {
            letter: qsTr("R")
            tone: Theme.blue
            figure: root.reading.value
            unit: root.reading.unit
            isNarrow: root.isSmall
        }
        NetworkRate {
            letter: qsTr("W")
            tone: Theme.violet
            figure: root.reading.secondValue
            unit: root.reading.secondUnit
            isNarrow: root.isSmall
        }
    }
}
