import Ambrel.Kit
import Ambrel.Telemetry

// What is read from all disks, and what is written to them.
RatesTile {
    mark: qsTr("R")
    secondMark: qsTr("W")
    tone: Theme.blue
    secondTone: Theme.violet
}
