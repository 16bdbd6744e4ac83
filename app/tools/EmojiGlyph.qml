import QtQuick
import Ambrel.Kit

// An emoji in its colors.
Text {
    property string emoji
    property int size: 22

    // The toolkit draws a joined sequence in pieces where it has variation selectors.
    text: emoji.includes("\u200d") ? emoji.replace(/\ufe0f/g, "") : emoji
    font.family: "Noto Color Emoji"
    font.pixelSize: Scaled.px(size)
    textFormat: Text.PlainText
    Accessible.ignored: true
}
