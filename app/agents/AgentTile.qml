import QtQuick
import Ambrel.Agents
import Ambrel.Kit

// One session within a tile of the bar: its tool, what it is about, and its status. Pressed, it asks for `action`. The
// keyboard stays with the tile around it.
Pressable {
    id: root

    // An agentFace.
    required property var session
    readonly property Tone tone: session.status === "needsInput" ? Theme.orange : session.status === "working" ? Theme.blue : session.status === "finished" ? Theme.green : Theme.neutral

    signal action

    activeFocusOnTab: false
    label: session.title + ", " + session.subtitle + ", " + session.statusText
    tip: qsTr("%1 · %2. Click to bring %3 forward").arg(session.title).arg(session.subtitle).arg(session.kind)
    onClicked: root.action()

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: -4
        anchors.rightMargin: -4
        radius: Theme.radiusSmall
        color: root.down ? Theme.greySoft : Theme.card
        opacity: root.hovered || root.down ? 1 : 0
    }
    AgentIcon {
        id: picture

        anchors.verticalCenter: parent.verticalCenter
        symbol: root.session.symbol
        icon: root.session.icon
    }
    Column {
        anchors.left: picture.right
        anchors.leftMargin: Theme.space2
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter

        Label {
            width: parent.width
            text: root.session.title
            role: Theme.smallMedium
            Accessible.ignored: true
        }
        Label {
            width: parent.width
            text: root.session.statusText
            role: Theme.subLine
            color: root.tone.text
            Accessible.ignored: true
        }
    }
}
