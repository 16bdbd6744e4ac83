import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// What Buddy says about one thing on the disk.
FocusScope {
    id: root

    required property DiskQuestion question

    signal showAsked(string id)

    visible: question.isOpen
    implicitHeight: words.height + 2 * Theme.space4
    Accessible.role: Accessible.Dialog
    Accessible.name: question.name
    Keys.onEscapePressed: root.question.close()

    PanelGround {
        anchors.fill: parent
        radius: Theme.radiusCard
        shadow: "floating"
    }
    // A click on the card must not fall through to the row below it.
    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
    }

    Column {
        id: words

        x: Theme.space4
        y: Theme.space4
        width: parent.width - 2 * Theme.space4
        spacing: Theme.space2

        Column {
            width: parent.width - close.width - Theme.space2

            TipLabel {
                width: parent.width
                text: root.question.name
                role: Theme.rowTitle
                elide: Text.ElideMiddle
            }
            TipLabel {
                width: parent.width
                text: root.question.detail
                role: Theme.small
                color: Theme.ink2
                elide: Text.ElideMiddle
            }
        }
        TipLabel {
            width: parent.width
            visible: !root.question.takesQuestions
            text: root.question.question
            role: Theme.listName
        }
        Field {
            id: field

            width: parent.width
            visible: root.question.takesQuestions
            text: root.question.question
            hint: qsTr("Ask about it")
            onAccepted: root.question.ask(text)
        }
        TipLabel {
            width: parent.width
            text: root.question.answer
            wrapMode: Text.WordWrap
            maximumLineCount: 7
            color: root.question.isAnswering ? Theme.ink2 : Theme.ink
        }
        Item {
            width: parent.width
            height: show.height

            Label {
                anchors.verticalCenter: parent.verticalCenter
                visible: root.question.isAnswering
                text: qsTr("Buddy is thinking")
                role: Theme.small
                color: Theme.ink2
            }
            Button {
                id: show

                anchors.right: parent.right
                size: 28
                text: qsTr("Show in Files")
                symbol: "folder"
                onClicked: root.showAsked(root.question.itemID)
            }
        }
    }
    IconButton {
        id: close

        anchors {
            right: parent.right
            rightMargin: Theme.space3
            top: parent.top
            topMargin: Theme.space3
        }
        label: qsTr("Close")
        tipKeys: qsTr("Esc")
        symbol: "xmark"
        onClicked: root.question.close()
    }
}
