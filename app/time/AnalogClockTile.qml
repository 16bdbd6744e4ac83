import QtQuick
import Ambrel.Kit
import Ambrel.Time

// The time on a dial, and the date beside it or below.
TileFrame {
    id: root

    required property ClockModel clock

    panel: Qt.resolvedUrl("MonthPanel.qml")
    hasHeader: false
    label: title + ", " + clock.face.time + ", " + clock.face.fullDate
    tip: clock.face.time + ", " + clock.face.fullDate

    ClockDial {
        width: root.isSmall ? 38 : 48
        height: width
        x: root.isSmall ? (parent.width - width) / 2 : -4
        hour: root.clock.face.hour
        minute: root.clock.face.minute
        ground: root.down ? Theme.tile : Theme.greySoft
        marks: Theme.ink3
        hands: Theme.ink
        accent: Theme.accent
    }
    Label {
        visible: root.isSmall
        y: parent.height - height
        width: parent.width
        text: root.clock.face.shortWeekday + " " + root.clock.face.day
        role: Theme.subLine
        color: Theme.ink2
        horizontalAlignment: Text.AlignHCenter
        Accessible.ignored: true
    }
    Column {
        visible: !root.isSmall
        x: 54
        width: parent.width - x

        Label {
            width: parent.width
            text: root.isNarrow ? root.clock.face.shortWeekday : root.clock.face.weekday
            role: Theme.caption
            color: Theme.ink2
            Accessible.ignored: true
        }
        Label {
            width: parent.width
            text: root.clock.face.day
            role: Theme.value
            Accessible.ignored: true
        }
        Label {
            width: parent.width
            text: root.isNarrow ? root.clock.face.shortMonth : root.clock.face.month
            role: Theme.subLine
            color: Theme.ink2
            Accessible.ignored: true
        }
    }
}
