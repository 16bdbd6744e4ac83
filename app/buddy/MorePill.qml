import QtQuick
import Ambrel.Buddy
import Ambrel.Kit

// The number of notices that wait; a click opens the inbox.
Pressable {
    id: root

    required property int count
    property bool isChosen: false

    label: qsTr("%1 more in the inbox").arg(count)
    tip: qsTr("Open the inbox")
    implicitHeight: Math.max(20, word.height + 6)
    implicitWidth: Math.ceil(word.implicitWidth) + 2 * Theme.space2

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: root.down ? Theme.tilePressed : root.hovered ? Theme.cardHover : Theme.greySoft
        border.width: root.hovered ? 1 : 0
        border.color: Theme.over(Theme.lineStrong, color)
    }
    Label {
        id: word

        anchors.centerIn: parent
        text: qsTr("+%1 more").arg(root.count)
        role: Theme.captionStrong
        color: Theme.ink2
        Accessible.ignored: true
    }
    FocusRing {
        shown: root.isChosen || root.activeFocus
        targetRadius: root.height / 2
    }
}
