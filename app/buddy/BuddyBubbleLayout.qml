import QtQuick
import Ambrel.Buddy
import Ambrel.Kit

// Buddy's speech bubble with one notice. A click outside its buttons does what the first button does.
Bubble {
    id: root

    required property BuddyNoticeCenter center
    property bool open: true
    // False where nothing below shows through: it is then whole from the first moment to the last.
    property bool fades: true
    readonly property int more: center.bubbleMore
    readonly property int actionCount: center.bubble.actions.length
    // The size of the bubble without its tail.
    readonly property real panelWidth: Scaled.px(320)
    readonly property real panelHeight: words.height + 2 * padding
    readonly property real presence: spring.value

    opacity: !fades ? 1 : open ? spring.opacity : 0
    visible: open || opacity > 0
    Accessible.role: Accessible.Notification
    Accessible.name: center.bubble.spoken

    PresenceSpring {
        id: spring

        isIn: root.open
    }
    Behavior on opacity {
        enabled: root.fades && !root.open

        NumberAnimation {
            duration: 100
            easing.type: Easing.OutCubic
        }
    }
    transform: Translate {
        readonly property real away: root.fades ? (1 - root.presence) * Theme.travel : 0
        y: root.tailSide === "left" || root.tailSide === "right" ? 0 : away
        x: root.tailSide === "left" ? -away : root.tailSide === "right" ? away : 0
    }

    HoverHandler {
        onHoveredChanged: root.center.setPointed(hovered)
    }
    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: root.center.answerBubble()
    }

    Column {
        id: words

        width: root.panelWidth - 2 * root.padding
        spacing: Theme.space1

        Item {
            width: parent.width
            height: Math.max(title.height, close.height)

            TipLabel {
                id: title

                anchors.left: parent.left
                anchors.right: more.visible ? more.left : close.left
                anchors.rightMargin: Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                text: root.center.bubble.title
                role: Theme.panelTitle
                wrapMode: Text.Wrap
                maximumLineCount: 2
                Accessible.role: Accessible.Heading
            }
            MorePill {
                id: more

                visible: root.more > 0
                anchors.right: close.left
                anchors.rightMargin: Theme.space1
                anchors.verticalCenter: parent.verticalCenter
                count: root.more
                isChosen: visible && root.center.choice === root.actionCount
                onClicked: root.center.openInbox()
            }
            IconButton {
                id: close

                anchors.right: parent.right
                anchors.rightMargin: -6
                anchors.verticalCenter: parent.verticalCenter
                symbol: "xmark"
                label: qsTr("Close")
                onClicked: root.center.closeBubble()

                FocusRing {
                    shown: root.center.choice === root.actionCount + (root.more > 0 ? 1 : 0)
                    targetRadius: Theme.radiusSmall
                }
            }
        }
        TipLabel {
            width: parent.width
            visible: text !== ""
            text: root.center.bubble.detail
            color: Theme.ink2
            wrapMode: Text.Wrap
            maximumLineCount: 6
        }
        Item {
            width: parent.width
            height: actions.visible ? actions.height + Theme.space2 : age.height

            NoticeActions {
                id: actions

                visible: root.actionCount > 0
                anchors.bottom: parent.bottom
                actions: root.center.bubble.actions
                choice: root.center.choice
                onPerform: action => root.center.performInBubble(action)
            }
            Label {
                id: age

                x: actions.visible ? parent.width - width : 0
                y: parent.height - height - (actions.visible ? Math.round((actions.height - height) / 2) : 0)
                text: root.center.bubble.age
                role: Theme.small
                color: Theme.ink2
            }
        }
    }
}
