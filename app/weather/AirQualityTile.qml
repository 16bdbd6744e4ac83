import QtQuick
import Ambrel.Kit

// The air-quality index on the chosen scale.
WeatherFrame {
    id: root

    fact: span === TileFrame.Large || span === TileFrame.ExtraLarge ? weather.texts.airScale : ""
    value: weather.texts.airValue
    subLine: weather.texts.airLabel
    reserved: span === TileFrame.Small ? 0 : 40
    problem: value !== "" ? "" : weather.texts.problem !== "" ? weather.texts.problem : qsTr("No reading")
    staleSince: weather.texts.airStaleSince
    tip: isUnavailable ? "" : weather.texts.particles === "" ? weather.texts.airSummary : weather.texts.airSummary + ", " + weather.texts.particles

    BandMark {
        visible: root.span !== TileFrame.Small && band >= 0
        band: root.weather.texts.airBand
        count: 6
        opacity: root.markOpacity
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 3
    }
}
