import Ambrel.Kit
import Ambrel.Telemetry

// What is read from all disks, and what is written to them.
RatesTile {
    hasLetters: true
    mark: qsTr("R")
    secondMark: qsTr("W")
    tone: Theme.blue
    secondTone: Theme.violet
}
