import QtQuick
import Ambrel.Kit

// A status in one word on its soft ground, with a dot or, for a risk, a symbol before it.
Rectangle {
    id: root

    property string text
    property Tone tone: Theme.neutral
    property bool hasDot: true
    property string symbol

    implicitHeight: Math.max(20, word.height + 6)
    implicitWidth: content.width + 2 * Theme.space2
    radius: height / 2
    color: tone.soft
    Accessible.role: Accessible.StaticText
    Accessible.name: text

    Row {
        id: content
        anchors.centerIn: parent
        spacing: 4

        Rectangle {
            visible: root.hasDot && root.symbol === ""
            width: Scaled.px(6)
            height: width
            radius: width / 2
            color: root.tone.mark
            anchors.verticalCenter: parent.verticalCenter
        }
        Symbol {
            visible: root.symbol !== ""
            name: root.symbol
            size: 13
            color: root.tone.text
            anchors.verticalCenter: parent.verticalCenter
        }
        Label {
            id: word
            text: root.text
            role: Theme.captionStrong
            color: root.tone.text
            anchors.verticalCenter: parent.verticalCenter
            Accessible.ignored: true
        }
    }
}
