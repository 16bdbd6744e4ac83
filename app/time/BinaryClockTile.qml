import QtQuick
import Ambrel.Kit
import Ambrel.Time

// Each digit of hours, minutes and seconds as a column of bits, the ones at the bottom.
TileFrame {
    id: root

    required property TimeReadingModel binaryClock
    readonly property real dot: isWide ? 9 : 7
    readonly property real gap: isSmall ? 2 : isMedium ? 5 : 4

    panel: Qt.resolvedUrl("MonthPanel.qml")
    hasHeader: isWide
    // Without the seconds: a screen reader would speak without an end.
    label: title + ", " + binaryClock.face.subLine
    value: isWide ? binaryClock.face.subLine : ""
    reserved: 88

    Row {
        id: columns

        x: root.isWide ? parent.width - width : (parent.width - width) / 2
        y: root.isWide ? 2 : 0
        spacing: root.gap

        Repeater {
            // As many bits as the digit can need.
            model: [2, 4, 3, 4, 3, 4]

            Column {
                id: column

                required property int index
                required property int modelData

                anchors.bottom: parent.bottom
                spacing: root.isWide ? 3 : 2

                Repeater {
                    model: column.modelData

                    Rectangle {
                        required property int index
                        readonly property bool isLit: ((root.binaryClock.face.digits[column.index] >> (column.modelData - 1 - index)) & 1) === 1

                        width: root.dot
                        height: root.dot
                        radius: root.dot / 2
                        color: isLit ? Theme.teal.mark : Theme.track
                    }
                }
            }
        }
    }
    Label {
        visible: !root.isWide
        y: parent.height - height
        width: parent.width
        text: root.binaryClock.face.subLine
        role: Theme.subLine
        color: Theme.ink2
        horizontalAlignment: Text.AlignHCenter
        Accessible.ignored: true
    }
}
