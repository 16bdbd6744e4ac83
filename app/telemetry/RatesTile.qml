import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Two rates, one below the other.
LiveTile {
    id: root

    // Letters, or names of symbols.
    required property string mark
    required property string secondMark
    property bool hasLetters: false
    property Tone tone: Theme.violet
    property Tone secondTone: Theme.blue
    // Has "M" for "MB/s".
    property bool hasShortUnits: isSmall
    readonly property bool hasRates: !hasMessage && reading.unit !== ""

    hasFigures: !hasRates

    Column {
        visible: root.hasRates
        y: root.hasHeader ? Theme.caption.line : 8
        spacing: 1

        NetworkRate {
            mark: root.mark
            hasLetter: root.hasLetters
            tone: root.tone
            figure: root.reading.value
            unit: root.reading.unit
            isNarrow: root.hasShortUnits
        }
        NetworkRate {
            mark: root.secondMark
            hasLetter: root.hasLetters
            tone: root.secondTone
            figure: root.reading.secondValue
            unit: root.reading.secondUnit
            isNarrow: root.hasShortUnits
        }
    }
}
