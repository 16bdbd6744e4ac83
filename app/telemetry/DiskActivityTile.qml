import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// What is read from all disks, and what is written to them.
LiveTile {
    id: root

    required property LiveModels readings
    readonly property bool hasRates: !hasMessage && reading.unit !== ""

    reading: readings.diskActivity
    hasFigures: !hasRates
    label: hasRates ? qsTr("%1, read %2 %3, written %4 %5").arg(title).arg(reading.value).arg(reading.unit).arg(reading.secondValue).arg(reading.secondUnit) : title + ", " + reading.spoken

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
