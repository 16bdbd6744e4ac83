import QtQuick
import Ambrel.Kit
import Ambrel.Tools

// The emoji that was used last; a click opens all of them.
TileFrame {
    id: root

    required property EmojiModel emoji

    panel: Qt.resolvedUrl("EmojiPanel.qml")
    value: " "
    label: title
    tip: description

    EmojiGlyph {
        anchors.centerIn: parent
        emoji: root.emoji.face.last === "" ? "😀" : root.emoji.face.last
        size: 17
    }
}
