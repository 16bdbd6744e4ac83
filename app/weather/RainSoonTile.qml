import QtQuick
import Ambrel.Kit

// Whether it rains within two hours.
WeatherFrame {
    id: root

    // A narrow tile needs its width for the words.
    readonly property bool hasDrop: texts.isWet && isWide

    // The summary says itself when there is no forecast.
    problem: ""
    value: texts.rainTitle
    valueRole: Theme.rowTitle
    valueColor: texts.isWet ? Theme.blue.text : Theme.ink
    subLine: texts.rainDetail
    reserved: hasDrop ? 26 : 0

    Symbol {
        visible: root.hasDrop
        name: "drop.fill"
        size: 22
        color: Theme.blue.mark
        opacity: root.markOpacity
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 4
    }
}
