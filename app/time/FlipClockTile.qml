import QtQuick
import Ambrel.Kit
import Ambrel.Time

// Hours and minutes on a card each; in a wider tile the date is beside them.
TileFrame {
    id: root

    required property ClockModel clock

    panel: Qt.resolvedUrl("MonthPanel.qml")
    hasHeader: false
    label: title + ", " + clock.face.time
    tip: clock.face.fullDate

    FlipCard {
        text: root.clock.face.hourText
        note: root.isSmall ? "" : root.clock.face.dayHalf
        isSmall: root.isSmall
    }
    FlipCard {
        id: minutes

        x: width + (root.isSmall ? 2 : 4)
        text: root.clock.face.minuteText
        isSmall: root.isSmall
    }
    Label {
        visible: root.isSmall
        y: parent.height - height
        width: parent.width
        text: root.clock.face.dayHalf === "" ? root.clock.face.shortWeekday + " " + root.clock.face.day : root.clock.face.dayHalf
        role: Theme.subLine
        color: Theme.ink2
        horizontalAlignment: Text.AlignHCenter
        Accessible.ignored: true
    }
    Column {
        visible: root.isWide
        x: minutes.x + minutes.width + Theme.space2
        width: parent.width - x
        anchors.verticalCenter: parent.verticalCenter

        Label {
            width: parent.width
            text: root.span === TileFrame.Large ? root.clock.face.shortWeekday : root.clock.face.weekday
            role: Theme.caption
            color: Theme.ink2
            Accessible.ignored: true
        }
        Label {
            width: parent.width
            text: root.span === TileFrame.Large ? root.clock.face.shortDay : root.clock.face.shortDate
            role: Theme.rowTitle
            Accessible.ignored: true
        }
    }
}
