import QtQuick
import Ambrel.Kit
import Ambrel.Time

// The moon, and when its next quarters are.
Popover {
    id: root

    required property MoonModel moon

    title: moon.face.name
    symbol: "moon"
    fact: root.moon.face.lit
    fitted: list

    MoonDisc {
        id: disc

        y: Theme.space4
        anchors.horizontalCenter: parent.horizontalCenter
        width: Scaled.px(88)
        height: width
        percent: root.moon.face.percent
        isWaxing: root.moon.face.isWaxing
        lit: Theme.weatherSun
        dark: Theme.track
    }
    DetailRows {
        id: list

        x: Theme.space4
        width: parent.width - 2 * Theme.space4
        anchors.top: disc.bottom
        anchors.topMargin: Theme.space4
        model: root.moon.events
    }
}
