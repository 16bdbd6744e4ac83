import QtQuick
import Ambrel.Kit

// Where a reading is on a scale of bands: as many small bars as there are bands, lit up to its own.
Row {
    id: root

    required property int band
    required property int count
    readonly property var tones: [Theme.green, Theme.yellow, Theme.orange, Theme.red, Theme.violet, Theme.violet]

    spacing: 2
    visible: band >= 0

    Repeater {
        model: root.count

        Rectangle {
            id: bar

            required property int index

            width: 4
            height: 8 + 3 * index
            radius: 2
            anchors.bottom: parent ? parent.bottom : undefined
            color: index <= root.band ? root.tones[root.band].mark : Theme.track
        }
    }
}
