import QtQuick
import Ambrel.Kit

// A key, as it is called on the keyboard.
Rectangle {
    id: root

    property string text

    visible: text !== ""
    implicitWidth: word.width + Theme.space3
    implicitHeight: Theme.caption.line + Theme.space1
    radius: Theme.radiusCheck
    color: Theme.card
    border.width: 1
    border.color: Theme.over(Theme.lineStrong, Theme.card)

    Label {
        id: word
        anchors.centerIn: parent
        text: root.text
        role: Theme.caption
    }
}
