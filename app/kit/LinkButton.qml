import QtQuick
import Ambrel.Kit

// An action as a word in accent.
Pressable {
    id: root

    property string text

    label: text
    implicitWidth: Math.ceil(word.implicitWidth)
    implicitHeight: word.height + Theme.space1

    Label {
        id: word
        anchors.centerIn: parent
        text: root.text
        role: Theme.rowTitle
        color: !root.enabled ? Theme.ink3 : root.hovered ? Theme.ink : Theme.blue.text
        Accessible.ignored: true
    }
    FocusRing {
        targetRadius: Theme.radiusHighlight
    }
}
