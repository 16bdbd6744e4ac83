import QtQuick

// The air-quality index on the chosen scale.
WeatherFrame {
    id: root

    fact: isWide ? texts.airScale : ""
    value: texts.airValue
    subLine: texts.airLabel
    reserved: isSmall ? 0 : 40
    problem: value !== "" ? "" : texts.problem !== "" ? texts.problem : qsTr("No reading")
    staleSince: texts.airStaleSince
    tip: isUnavailable ? "" : texts.particles === "" ? texts.airSummary : texts.airSummary + ", " + texts.particles

    BandMark {
        visible: !root.isSmall && band >= 0
        band: root.texts.airBand
        count: 6
        opacity: root.markOpacity
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 3
    }
}
