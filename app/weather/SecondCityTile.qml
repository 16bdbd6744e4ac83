import QtQuick
import Ambrel.Kit

// The weather and the time of another place.
WeatherFrame {
    id: root

    weather: area.second
    panelProperties: ({
            weather: weather,
            hasScale: false
        })
    name: weather.texts.place
    symbol: isSmall && !isUnavailable ? "" : "building.2"
    fact: isWide ? weather.texts.localTime : ""
    value: weather.texts.temperature
    valueRole: Theme.clock
    // The picture speaks of the sky where there is no room for both.
    subLine: isWide ? weather.texts.condition : weather.texts.localTime
    reserved: span === TileFrame.Small || span === TileFrame.Medium ? 0 : 28
    tip: isUnavailable ? "" : weather.texts.summary

    // In a small tile it replaces the symbol.
    WeatherPicture {
        visible: root.isSmall
        name: root.weather.texts.symbol
        size: 22
        opacity: root.markOpacity
        anchors.horizontalCenter: parent.horizontalCenter
        y: -2
    }
    WeatherPicture {
        visible: !root.isSmall
        name: root.weather.texts.symbol
        opacity: root.markOpacity
        anchors.right: parent.right
        // In a narrow tile the line below it needs the whole width.
        y: root.span === TileFrame.Medium && !root.isStale ? Theme.caption.line - 5 : Theme.caption.line + 2
    }
}
