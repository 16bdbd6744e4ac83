import QtQuick
import Ambrel.Agents
import Ambrel.Kit

// One session: its tool, what it is about or asks, its status and its age. A click brings its window forward, the tip
// says how the status is known.
Pressable {
    id: root

    required property AgentsModel agents
    required property string sessionId
    required property string kind
    required property string symbol
    required property string icon
    required property string title
    required property string subtitle
    required property string status
    required property string statusText
    required property string age
    readonly property bool isChosen: hovered || activeFocus

    implicitHeight: Scaled.px(44)
    label: title + ", " + subtitle + ", " + statusText + ", " + age
    Accessible.description: activeFocus ? agents.origin(sessionId) : ""
    // The age in it is that of the moment.
    onHoveredChanged: {
        if (!hovered)
            return Tips.leave(root);
        const lines = [titleLabel.truncated ? title : "", subtitleLabel.truncated ? subtitle : "", agents.origin(sessionId)];
        Tips.enter(root, lines.filter(line => line !== "").join("\n"));
    }

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusButton
        color: root.down ? Theme.greySoft : Theme.card
        opacity: root.isChosen || root.down ? 1 : 0

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.hoverDuration
                easing.type: Easing.OutCubic
            }
        }
    }

    AgentIcon {
        id: box

        anchors.left: parent.left
        anchors.leftMargin: Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        symbol: root.symbol
        icon: root.icon
    }

    Column {
        anchors.left: box.right
        anchors.leftMargin: Theme.space3
        anchors.right: pill.left
        anchors.rightMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter

        Label {
            id: titleLabel

            width: parent.width
            text: root.title
            role: Theme.rowTitle
            Accessible.ignored: true
        }
        Label {
            id: subtitleLabel

            width: parent.width
            text: root.subtitle
            role: Theme.small
            color: Theme.ink2
            Accessible.ignored: true
        }
    }

    StatusPill {
        id: pill

        anchors.right: ageLabel.left
        anchors.rightMargin: Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        status: root.status
        text: root.statusText
        Accessible.ignored: true
    }

    Label {
        id: ageLabel

        anchors.right: parent.right
        anchors.rightMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        width: Math.max(64, implicitWidth)
        horizontalAlignment: Text.AlignRight
        text: root.age
        role: Theme.small
        color: Theme.ink2
        Accessible.ignored: true
    }

    FocusRing {
        gap: 0
    }
}
