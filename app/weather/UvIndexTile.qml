import QtQuick

// The UV index and what it means.
WeatherFrame {
    id: root

    value: weather.texts.uvIndex
    subLine: weather.texts.uvLabel
    reserved: isSmall ? 0 : 32
    problem: weather.texts.problem !== "" ? weather.texts.problem : value === "" ? qsTr("No reading") : ""
    tip: isUnavailable ? "" : weather.texts.uvSummary

    BandMark {
        visible: !root.isSmall && band >= 0
        band: root.weather.texts.uvBand
        count: 5
        opacity: root.markOpacity
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 3
    }
}
