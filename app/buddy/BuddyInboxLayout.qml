import QtQuick
import Ambrel.Base
import Ambrel.Buddy
import Ambrel.Kit

// What Buddy has said since the program started, newest first.
Popover {
    id: root

    required property BuddyNoticeCenter center
    required property Presentation presentation
    // Questions can be handed on.
    property bool canAsk: false
    // The expanded row.
    property string chosenKey
    readonly property bool hasDigest: center.inbox.digest.length > 0
    readonly property bool isEmpty: center.notes.count === 0 && !hasDigest

    signal settingsAsked(string tab)
    signal ask(string question)

    implicitWidth: Scaled.px(360)
    implicitHeight: Scaled.px(480)
    title: qsTr("Inbox")
    headerHeight: 56
    header.titleInset: 40

    headerItems: [
        Pill {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.center.inbox.newCount > 0
            text: qsTr("%1 new").arg(root.center.inbox.newCount)
            hasDot: false
            tone: Theme.blue
        },
        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            label: qsTr("Mark all as read")
            symbol: "checkmark.double"
            enabled: root.center.inbox.newCount > 0
            onClicked: root.center.markRead()
        },
        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            label: qsTr("Clear all")
            symbol: "clear"
            enabled: !root.isEmpty
            onClicked: root.center.clearInbox()
        }
    ]

    BuddyFace {
        parent: root.header
        x: Theme.space4
        anchors.verticalCenter: parent ? parent.verticalCenter : undefined
        size: 32
        pose: root.center.buddy.pose
        live: root.presentation.isOnScreen
    }

    Connections {
        target: root.presentation

        function onChanged() {
            if (!root.presentation.isShown)
                return;
            list.positionViewAtBeginning();
            root.chosenKey = root.center.inbox.keyToShow;
        }
    }

    EmptyState {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.verticalCenter: list.verticalCenter
        width: parent.width
        visible: root.isEmpty
        symbol: "checkmark.double"
        title: qsTr("Nothing to report")
        sentence: qsTr("Buddy speaks up when an agent needs you, a meeting starts or a limit is near.")
    }

    ListView {
        id: list

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: foot.top
        visible: !root.isEmpty
        model: root.center.notes
        clip: true
        focus: true
        topMargin: Theme.space1
        bottomMargin: Theme.space2
        leftMargin: Theme.space2
        rightMargin: Theme.space2
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: true
        highlightMoveDuration: 0
        currentIndex: -1
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Notes")

        header: Item {
            width: list.width
            height: card.visible ? card.implicitHeight + 2 * Theme.space2 : 0

            DigestCard {
                id: card

                visible: root.hasDigest
                x: Theme.space4 - 1 - list.leftMargin
                y: Theme.space2
                width: list.width - 2 * (Theme.space4 - 1)
                height: implicitHeight
                center: root.center
            }
        }

        section.property: "section"
        section.delegate: Item {
            id: sectionHead

            required property string section

            width: list.width
            height: Scaled.px(32)

            Label {
                x: Theme.space4 - list.leftMargin
                anchors.bottom: parent.bottom
                anchors.bottomMargin: Theme.space1
                text: sectionHead.section
                role: Theme.captionStrong
                color: Theme.ink2
                Accessible.role: Accessible.Heading
            }
        }

        delegate: InboxRow {
            required property int index

            width: list.width - 2 * Theme.space2
            isChosen: row.key === root.chosenKey
            onActiveFocusChanged: if (activeFocus)
                list.currentIndex = index
            onChosen: root.chosenKey = isChosen ? "" : row.key
            onPerform: action => root.center.performInInbox(row.key, action)
            onSettingsAsked: root.settingsAsked("buddy")
        }
    }
    ScrollBar {
        view: list
        anchors.right: parent.right
        anchors.top: list.top
        anchors.bottom: list.bottom
        anchors.topMargin: Theme.space1
        anchors.bottomMargin: Theme.space1
    }

    Column {
        id: foot

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        leftPadding: Theme.space4 - 1
        rightPadding: Theme.space4 - 1

        Rectangle {
            width: foot.width - 2 * foot.leftPadding
            height: 1
            color: Theme.over(Theme.line, Theme.panel)
        }
        Item {
            visible: root.canAsk
            width: foot.width - 2 * foot.leftPadding
            height: question.height + Theme.space3

            Field {
                id: question

                y: Theme.space3
                width: parent.width
                hint: qsTr("Ask Buddy")
                symbol: "text.bubble"
                onAccepted: {
                    root.ask(text);
                    text = "";
                }
            }
        }
        Item {
            width: foot.width - 2 * foot.leftPadding
            height: Scaled.px(40)

            Symbol {
                id: moon

                anchors.verticalCenter: parent.verticalCenter
                name: "moon.fill"
                size: 16
                color: Theme.ink2
            }
            TipLabel {
                anchors.left: moon.right
                anchors.leftMargin: Theme.space2
                anchors.right: change.left
                anchors.rightMargin: Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                text: root.center.inbox.quietText
                role: Theme.small
                color: Theme.ink2
            }
            LinkButton {
                id: change

                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("Change")
                onClicked: root.settingsAsked("buddy")
            }
        }
    }
}
