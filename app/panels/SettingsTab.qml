import QtQuick
import Ambrel.Kit

// One tab of the settings.
Pressable {
    id: root

    property string text
    property string symbol
    property bool isChosen: false
    readonly property color ink: isChosen ? Theme.blue.text : hovered ? Theme.ink : Theme.ink2

    label: text
    accessibleRole: Accessible.PageTab
    Accessible.checked: isChosen
    implicitWidth: Math.max(60, word.implicitWidth + Theme.space3)
    implicitHeight: word.y + word.height + Theme.space1

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusButton
        color: root.isChosen ? Theme.blue.soft : Theme.card
        visible: root.isChosen || root.hovered
    }
    Symbol {
        y: Theme.space2
        anchors.horizontalCenter: parent.horizontalCenter
        name: root.symbol
        size: 20
        color: root.ink
    }
    Label {
        id: word
        y: Theme.space2 + Scaled.px(22)
        anchors.horizontalCenter: parent.horizontalCenter
        text: root.text
        role: root.isChosen ? Theme.captionStrong : Theme.caption
        color: root.ink
        Accessible.ignored: true
    }
    FocusRing {
        gap: 2
    }
}
