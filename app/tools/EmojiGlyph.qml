import QtQuick

// An emoji in its colors.
Text {
    property int size: 22

    font.family: "Noto Color Emoji"
    font.pixelSize: size
    textFormat: Text.PlainText
    Accessible.ignored: true
}
