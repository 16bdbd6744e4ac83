import QtQuick
import Ambrel.Kit

// How strong the wind is, and where it comes from; the arrow points to where it blows.
WeatherFrame {
    id: root

    readonly property bool hasDirection: texts.windFrom !== ""

    value: texts.wind
    unit: texts.windUnit
    subLine: hasDirection ? qsTr("from %1").arg(texts.windFrom) : ""
    reserved: isSmall || !hasDirection ? 0 : Scaled.px(20)
    problem: texts.problem !== "" ? texts.problem : value === "" ? qsTr("No reading") : ""

    Symbol {
        visible: root.hasDirection && !root.isSmall
        name: "location.north.fill"
        size: 18
        color: Theme.blue.mark
        opacity: root.markOpacity
        rotation: root.texts.windDegrees + 180
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 2
    }
}
