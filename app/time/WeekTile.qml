import QtQuick
import Ambrel.Kit
import Ambrel.Time

// The seven days of this week. In a narrow tile there is room for their letters alone.
TileFrame {
    id: root

    required property MonthModel month

    panel: Qt.resolvedUrl("MonthPanel.qml")
    name: isSmall ? month.face.presentWeekday : isNarrow ? caption : month.face.presentTitle
    label: title + ", " + month.face.presentWeekday + " " + month.face.presentDay + ", " + month.face.presentTitle
    value: isNarrow ? month.face.presentDay : ""

    Row {
        visible: !root.isSmall
        y: parent.height - height
        width: parent.width

        Repeater {
            model: root.month.week

            Item {
                id: column

                required property dayCell row

                width: parent.width / 7
                height: root.isNarrow ? Theme.subLine.line : Theme.subLine.line + 20

                Label {
                    width: parent.width
                    text: column.row.letter
                    role: column.row.isToday ? Theme.captionStrong : Theme.subLine
                    color: column.row.isToday ? Theme.blue.text : column.row.isOff ? Theme.ink3 : Theme.ink2
                    horizontalAlignment: Text.AlignHCenter
                    Accessible.ignored: true
                }
                DayNumber {
                    visible: root.isWide
                    y: Theme.subLine.line
                    anchors.horizontalCenter: parent.horizontalCenter
                    day: column.row
                }
            }
        }
    }
}
