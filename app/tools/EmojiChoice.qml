import QtQuick
import Ambrel.Kit
import Ambrel.Tools

// One of a row of choices, each an emoji; a clock where it has none.
Pressable {
    id: root

    property string emoji
    property int size: 18
    property bool isChosen: false

    tip: label
    accessibleRole: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: isChosen
    implicitWidth: Scaled.px(2 * size)
    implicitHeight: implicitWidth

    Rectangle {
        anchors.fill: parent
        anchors.margins: 1
        radius: Theme.radiusButton
        visible: root.isChosen || root.hovered
        color: root.isChosen ? Theme.blue.soft : Theme.cardHover
    }
    Symbol {
        anchors.centerIn: parent
        visible: root.emoji === ""
        name: "clock"
        size: root.size
        color: Theme.ink2
    }
    EmojiGlyph {
        anchors.centerIn: parent
        emoji: root.emoji
        size: root.size
    }
    FocusRing {
        gap: 0
    }
}
