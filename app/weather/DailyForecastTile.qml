import QtQuick
import Ambrel.Kit

// The next seven days.
WeatherFrame {
    id: root

    readonly property bool isEmpty: weather.texts.days.length === 0

    hasHeader: isUnavailable && span !== TileFrame.Small
    problem: weather.texts.problem !== "" ? weather.texts.problem : isEmpty ? qsTr("The forecast has run out") : ""
    label: isUnavailable ? spoken : name + ", " + weather.texts.daysSummary + (isStale ? ", " + staleSince : "")

    ForecastRow {
        anchors.fill: parent
        anchors.leftMargin: -6
        anchors.rightMargin: -6
        anchors.topMargin: -3
        anchors.bottomMargin: -3
        entries: root.weather.texts.days
        timeKey: "day"
        figureKey: "high"
        lowKey: "low"
        staleSince: root.staleSince
        markOpacity: root.markOpacity
    }
}
