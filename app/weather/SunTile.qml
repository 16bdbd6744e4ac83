import QtQuick
import Ambrel.Kit

// The next sunrise or sunset, and how long the day is.
WeatherFrame {
    id: root

    readonly property bool isPolar: texts.sunTime === "" && texts.sunTitle !== ""

    name: texts.sunTitle !== "" && !isPolar ? texts.sunTitle : caption
    value: isPolar ? texts.sunTitle : texts.sunTime
    valueRole: isPolar ? Theme.rowTitle : Theme.value
    subLine: texts.sunDetail
    problem: texts.problem !== "" ? texts.problem : value === "" ? qsTr("No sunrise or sunset") : ""
    tip: isUnavailable ? "" : name + ", " + value + (subLine === "" ? "" : ", " + subLine)

    // How far the day has come.
    Rectangle {
        visible: root.texts.dayPercent >= 0 && !root.isSmall && !root.isStale
        anchors.right: parent.right
        y: Theme.caption.line / 2 - 2
        width: 22
        height: 4
        radius: 2
        color: Theme.track

        Rectangle {
            width: Math.max(4, parent.width * root.texts.dayPercent / 100)
            height: 4
            radius: 2
            color: Theme.yellow.mark
            opacity: root.markOpacity
        }
    }
}
