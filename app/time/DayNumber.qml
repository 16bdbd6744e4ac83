import QtQuick
import Ambrel.Kit
import Ambrel.Time

// The number of a day; today's is on a disc.
Rectangle {
    id: root

    required property dayCell day
    property bool isFaint: false
    property int size: 20

    width: Scaled.px(size)
    height: width
    radius: height / 2
    color: day.isToday ? Theme.accent : "transparent"

    Label {
        anchors.centerIn: parent
        text: root.day.number
        role: root.day.isToday ? Theme.smallStrong : Theme.small
        color: root.day.isToday ? Theme.onAccent : root.isFaint ? Theme.ink3 : root.day.isOff ? Theme.ink2 : Theme.ink
        Accessible.ignored: true
    }
}
