import QtQuick
import Ambrel.Kit

// The next hours.
WeatherFrame {
    id: root

    readonly property bool isEmpty: weather.texts.hours.length === 0

    hasHeader: isUnavailable && span !== TileFrame.Small
    problem: weather.texts.problem !== "" ? weather.texts.problem : isEmpty ? qsTr("The forecast has run out") : ""
    label: isUnavailable ? spoken : name + ", " + weather.texts.hoursSummary + (isStale ? ", " + staleSince : "")

    ForecastRow {
        anchors.fill: parent
        anchors.leftMargin: -6
        anchors.rightMargin: -6
        entries: root.weather.texts.hours
        timeKey: "time"
        figureKey: "temperature"
        staleSince: root.staleSince
        markOpacity: root.markOpacity
    }
}
