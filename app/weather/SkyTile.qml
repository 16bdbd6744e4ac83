import QtQuick
import Ambrel.Kit

// The temperature of a place under a picture of its sky.
WeatherFrame {
    id: root

    // Of the caption; in a small tile it is shown only without a picture.
    required property string ownSymbol

    symbol: isSmall && !isUnavailable ? "" : ownSymbol
    value: texts.temperature
    valueRole: Theme.clock
    reserved: isNarrow ? 0 : 28
    tip: isUnavailable ? "" : texts.summary

    // In a small tile it replaces the symbol.
    WeatherPicture {
        visible: root.isSmall
        name: root.texts.symbol
        size: 22
        opacity: root.markOpacity
        anchors.horizontalCenter: parent.horizontalCenter
        y: -2
    }
    WeatherPicture {
        visible: !root.isSmall
        name: root.texts.symbol
        opacity: root.markOpacity
        anchors.right: parent.right
        // In a narrow tile the line below it needs the whole width.
        y: root.isMedium && !root.isStale ? Theme.caption.line - 5 : Theme.caption.line + 2
    }
}
