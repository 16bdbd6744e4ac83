import QtQuick
import Ambrel.Kit

// The next sunrise or sunset, and how long the day is.
WeatherFrame {
    id: root

    readonly property bool isPolar: weather.texts.sunTime === "" && weather.texts.sunTitle !== ""

    name: weather.texts.sunTitle !== "" && !isPolar ? weather.texts.sunTitle : caption
    value: isPolar ? weather.texts.sunTitle : weather.texts.sunTime
    valueRole: isPolar ? Theme.rowTitle : Theme.value
    subLine: weather.texts.sunDetail
    problem: weather.texts.problem !== "" ? weather.texts.problem : value === "" ? qsTr("No sunrise or sunset") : ""
    tip: isUnavailable ? "" : name + ", " + value + (subLine === "" ? "" : ", " + subLine)

    // How far the day has come.
    Rectangle {
        visible: root.weather.texts.dayPercent >= 0 && !root.isSmall && !root.isStale
        anchors.right: parent.right
        y: Theme.caption.line / 2 - 2
        width: 22
        height: 4
        radius: 2
        color: Theme.track

        Rectangle {
            width: Math.max(4, parent.width * root.weather.texts.dayPercent / 100)
            height: 4
            radius: 2
            color: Theme.yellow.mark
            opacity: root.markOpacity
        }
    }
}
