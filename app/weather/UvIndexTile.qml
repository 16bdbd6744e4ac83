import QtQuick

// The UV index and what it means.
WeatherFrame {
    id: root

    value: texts.uvIndex
    subLine: texts.uvLabel
    reserved: isSmall ? 0 : 32
    problem: texts.problem !== "" ? texts.problem : value === "" ? qsTr("No reading") : ""
    tip: isUnavailable ? "" : texts.uvSummary

    BandMark {
        visible: !root.isSmall && band >= 0
        band: root.texts.uvBand
        count: 5
        opacity: root.markOpacity
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 3
    }
}
