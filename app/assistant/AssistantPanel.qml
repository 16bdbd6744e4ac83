import QtQuick
import Ambrel.Assistant
import Ambrel.Base
import Ambrel.Buddy
import Ambrel.Kit

// The conversation with Buddy.
Popover {
    id: root

    required property Assistant assistant
    required property Buddy buddy
    required property Presentation presentation

    signal copyAsked(string text)
    signal settingsAsked(string tab)

    implicitWidth: Scaled.px(560)
    implicitHeight: Scaled.px(420)
    title: qsTr("Ask Buddy")
    headerHeight: 56
    header.titleInset: 40

    headerItems: IconButton {
        anchors.verticalCenter: parent ? parent.verticalCenter : undefined
        label: qsTr("New conversation")
        symbol: "square.and.pencil"
        enabled: root.assistant.turns.count > 0
        onClicked: {
            root.assistant.newConversation();
            field.input.forceActiveFocus();
        }
    }

    BuddyFace {
        parent: root.header
        x: Theme.space4
        anchors.verticalCenter: parent ? parent.verticalCenter : undefined
        size: 32
        pose: root.buddy.pose
        live: root.presentation.isOnScreen
    }

    SuggestionList {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.verticalCenter: list.verticalCenter
        width: parent.width - 2 * Theme.space4
        visible: root.assistant.turns.count === 0
        suggestions: root.assistant.suggestions
        onChosen: text => {
            root.assistant.ask(text);
            field.input.forceActiveFocus();
        }
    }
    ListView {
        id: list

        // The end stays in view while answers grow, until the user scrolls away from it.
        property bool follows: true

        anchors {
            left: parent.left
            right: parent.right
            top: parent.top
            bottom: foot.top
        }
        topMargin: Theme.space3
        leftMargin: Theme.space4
        rightMargin: Theme.space4
        clip: true
        model: root.assistant.turns
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0
        currentIndex: -1
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Conversation")
        onMovementEnded: follows = atYEnd
        onCountChanged: {
            follows = true;
            positionViewAtEnd();
        }
        onContentHeightChanged: if (follows)
            positionViewAtEnd()

        delegate: TurnRow {
            width: list.width - 2 * Theme.space4
            pose: root.buddy.pose
            live: root.presentation.isOnScreen
            onCopyAsked: text => root.copyAsked(text)
        }
    }
    ScrollBar {
        view: list
        anchors {
            right: parent.right
            top: list.top
            bottom: list.bottom
            margins: Theme.space1
        }
    }

    Column {
        id: foot

        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
            leftMargin: Theme.space4
            rightMargin: Theme.space4
            bottomMargin: Theme.space4
        }
        spacing: Theme.space2

        Item {
            visible: root.assistant.warning !== ""
            width: parent.width
            height: Math.max(why.height, settings.height)

            Symbol {
                id: mark

                anchors.verticalCenter: parent.verticalCenter
                name: "exclamationmark.triangle"
                size: 16
                color: Theme.ink2
            }
            Label {
                id: why

                anchors {
                    left: mark.right
                    leftMargin: Theme.space2
                    right: settings.left
                    rightMargin: Theme.space3
                    verticalCenter: parent.verticalCenter
                }
                text: root.assistant.warning
                role: Theme.small
                color: Theme.ink2
                wrapMode: Text.WordWrap
            }
            LinkButton {
                id: settings

                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("Open Settings…")
                onClicked: root.settingsAsked("buddy")
            }
        }
        Row {
            width: parent.width
            spacing: Theme.space2

            Field {
                id: field

                focus: true
                width: parent.width - send.width - parent.spacing
                height: Scaled.px(40)
                hint: qsTr("Ask Buddy")
                text: root.assistant.prompt
                onTextChanged: root.assistant.prompt = text
                onAccepted: root.assistant.send()
                Keys.onPressed: event => {
                    if (event.key !== Qt.Key_PageUp && event.key !== Qt.Key_PageDown)
                        return;
                    const step = event.key === Qt.Key_PageUp ? -list.height : list.height;
                    list.contentY = Math.max(list.originY - list.topMargin, Math.min(list.contentY + step, list.originY + list.contentHeight - list.height));
                    list.follows = list.atYEnd;
                    event.accepted = true;
                }

                Connections {
                    target: root.assistant

                    function onPromptChanged() {
                        field.text = root.assistant.prompt;
                    }
                    // The button goes off with the answer, and would leave the keys without a place.
                    function onIsRespondingChanged() {
                        if (!root.assistant.isResponding && send.focus)
                            field.focus = true;
                    }
                }
            }
            Button {
                id: send

                size: 36
                height: field.height
                width: height
                kind: root.assistant.isResponding ? Button.Secondary : Button.Primary
                symbol: root.assistant.isResponding ? "stop.fill" : "arrow.up"
                label: root.assistant.isResponding ? qsTr("Stop") : qsTr("Send (Return)")
                tip: label
                enabled: root.assistant.isResponding || field.text.trim() !== ""
                onClicked: root.assistant.isResponding ? root.assistant.stop() : root.assistant.send()
            }
        }
    }
}
