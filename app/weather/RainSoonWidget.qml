import QtQuick
import Ambrel.Kit

// Whether it rains within two hours.
WeatherFrame {
    id: root

    name: qsTr("Rain Soon")
    symbol: "umbrella"
    span: TileFrame.Large
    // The summary says itself when there is no forecast.
    problem: ""
    value: weather.texts.rainTitle
    valueRole: Theme.rowTitle
    valueColor: weather.texts.isWet ? Theme.blue.text : Theme.ink
    subLine: weather.texts.rainDetail
    reserved: weather.texts.isWet && span !== TileFrame.Small ? 26 : 0

    Symbol {
        visible: root.weather.texts.isWet && root.span !== TileFrame.Small
        name: "drop.fill"
        size: 22
        color: Theme.blue.mark
        opacity: root.markOpacity
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 4
    }
}
