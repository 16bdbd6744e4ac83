import QtQuick
import Ambrel.Kit
import Ambrel.Tools

// One emoji of the grid.
Pressable {
    id: root

    required property emojiRow row
    required property int index
    property bool isCurrent: false

    // The pointer or the keyboard has come to it.
    signal pointed

    label: row.name
    activeFocusOnTab: false
    onHoveredChanged: if (hovered)
        pointed()
    onIsCurrentChanged: if (isCurrent)
        pointed()

    Rectangle {
        anchors.fill: parent
        anchors.margins: 1
        radius: Theme.radiusButton
        visible: root.isCurrent || root.hovered
        color: root.isCurrent ? Theme.blue.soft : Theme.cardHover
    }
    EmojiGlyph {
        anchors.centerIn: parent
        text: root.row.text
    }
}
