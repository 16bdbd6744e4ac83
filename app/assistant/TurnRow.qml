import QtQuick
import Ambrel.Buddy
import Ambrel.Kit

// A question at the right, and Buddy's answer at the left below it.
Item {
    id: root

    required property string question
    required property string answer
    required property bool isThinking
    required property bool isWhole
    property string pose: "idle"
    property bool live: true
    readonly property string said: isThinking ? qsTr("Buddy is thinking") : answer
    readonly property real widest: Math.round(width * 0.78)

    signal copyAsked(string text)

    implicitHeight: ground.y + (reply.visible ? ground.height : 0) + Theme.space3
    Accessible.role: Accessible.ListItem
    Accessible.name: question + ". " + said

    Rectangle {
        id: bubble

        anchors.right: parent.right
        width: asked.width + 2 * Theme.space3
        height: asked.height + 2 * Theme.space2
        radius: Theme.radiusCard
        color: Theme.blue.soft

        Label {
            id: asked

            x: Theme.space3
            y: Theme.space2
            width: Math.min(Math.ceil(implicitWidth), root.widest - 2 * x)
            text: root.question
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
    }
    BuddyFace {
        visible: reply.visible
        anchors.bottom: ground.bottom
        size: 28
        pose: root.isWhole ? "idle" : root.pose
        live: root.live
    }
    Rectangle {
        id: ground

        x: 28 + Theme.space2
        y: bubble.height + Theme.space2
        visible: reply.visible
        width: reply.width + 2 * Theme.space3
        height: reply.height + 2 * Theme.space2
        radius: Theme.radiusCard
        color: Theme.card
    }
    Label {
        id: reply

        // A command may name nothing, and has no answer then.
        visible: root.said !== ""
        x: ground.x + Theme.space3
        y: ground.y + Theme.space2
        width: Math.min(Math.ceil(implicitWidth), root.widest - 2 * Theme.space3)
        text: root.said
        wrapMode: Text.Wrap
        color: root.isThinking ? Theme.ink2 : Theme.ink
        Accessible.ignored: true
    }
    IconButton {
        anchors.left: ground.right
        anchors.leftMargin: Theme.space1
        anchors.bottom: ground.bottom
        visible: root.isWhole && root.answer !== ""
        opacity: over.hovered || activeFocus ? 1 : 0
        size: 24
        symbolSize: 16
        symbol: "doc.on.doc"
        label: qsTr("Copy the answer")
        onClicked: root.copyAsked(root.answer)
    }
    HoverHandler {
        id: over
    }
}
