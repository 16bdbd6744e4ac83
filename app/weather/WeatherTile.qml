import QtQuick
import Ambrel.Kit

// The present weather of the chosen place.
WeatherFrame {
    id: root

    name: isNarrow ? title : weather.texts.place
    symbol: isSmall && !isUnavailable ? "" : "mappin"
    fact: span === TileFrame.Large || span === TileFrame.ExtraLarge ? weather.texts.highLow : ""
    value: weather.texts.temperature
    valueRole: Theme.clock
    subLine: weather.texts.condition
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
