import QtQuick

// A forecast in columns, which leave no room for a caption.
WeatherFrame {
    id: root

    required property var entries
    required property string summary
    property bool hasLows: false

    hasHeader: isUnavailable && !isSmall
    problem: texts.problem !== "" ? texts.problem : entries.length === 0 ? qsTr("The forecast has run out") : ""
    label: isUnavailable ? spoken : name + ", " + summary + (isStale ? ", " + staleSince : "")

    ForecastRow {
        anchors.fill: parent
        anchors.leftMargin: -6
        anchors.rightMargin: -6
        anchors.topMargin: root.hasLows ? -3 : 0
        anchors.bottomMargin: anchors.topMargin
        entries: root.entries
        hasLows: root.hasLows
        staleSince: root.staleSince
        markOpacity: root.markOpacity
    }
}
