import QtQuick

// The air-quality index on the chosen scale.
WeatherFrame {
    id: root

    fact: isWide ? weather.texts.airScale : ""
    value: weather.texts.airValue
    subLine: weather.texts.airLabel
    reserved: isSmall ? 0 : 40
    problem: value !== "" ? "" : weather.texts.problem !== "" ? weather.texts.problem : qsTr("No reading")
    staleSince: weather.texts.airStaleSince
    tip: isUnavailable ? "" : weather.texts.particles === "" ? weather.texts.airSummary : weather.texts.airSummary + ", " + weather.texts.particles

    BandMark {
        visible: !root.isSmall && band >= 0
        band: root.weather.texts.airBand
        count: 6
        opacity: root.markOpacity
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 3
    }
}
