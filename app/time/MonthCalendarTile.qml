import QtQuick
import Ambrel.Kit
import Ambrel.Time

// Today, and this month as dots.
TileFrame {
    id: root

    required property MonthModel month
    readonly property real dot: isWide ? 6 : 4

    panel: Qt.resolvedUrl("MonthPanel.qml")
    name: isSmall ? month.face.presentWeekday : isNarrow ? caption : month.face.presentMonth
    label: title + ", " + month.face.presentWeekday + " " + month.face.presentDay + ", " + month.face.presentTitle
    value: month.face.presentDay
    subLine: month.face.presentWeekday
    reserved: isSmall ? 0 : dots.width

    Grid {
        id: dots

        visible: !root.isSmall
        anchors.right: parent.right
        y: root.isWide ? 2 : Theme.caption.line + 2
        columns: 7
        spacing: 2

        Repeater {
            model: root.month.present

            Rectangle {
                required property dayCell row

                width: root.dot
                height: root.isWide ? root.dot : 3.5
                radius: height / 2
                color: !row.isInMonth ? "transparent" : row.isToday ? Theme.accent : row.isOff ? Theme.track : Theme.ink3
            }
        }
    }
}
