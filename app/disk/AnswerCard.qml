import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// Buddy's answer about one item.
FocusScope {
    id: root

    required property DiskQuestion question

    signal showAsked(string id)

    visible: question.face.isOpen
    implicitHeight: words.height + 2 * Theme.space4
    Accessible.role: Accessible.Dialog
    Accessible.name: question.face.name
    Keys.onEscapePressed: root.question.close()

    PanelGround {
        anchors.fill: parent
        radius: Theme.radiusCard
        shadow: "floating"
    }
    // Clicks must not reach the row below.
    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
    }

    Column {
        id: words

        x: Theme.space4
        y: Theme.space4
        width: parent.width - 2 * Theme.space4
        spacing: Theme.space2

        RowWords {
            width: parent.width - close.width - Theme.space2
            title: root.question.face.name
            titleRole: Theme.rowTitle
            detail: root.question.face.detail
            Accessible.role: Accessible.StaticText
            Accessible.name: title + ", " + detail
        }
        TipLabel {
            width: parent.width
            visible: !root.question.face.takesQuestions
            text: root.question.face.question
            role: Theme.listName
        }
        Field {
            id: field

            width: parent.width
            visible: root.question.face.takesQuestions
            text: root.question.face.question
            hint: qsTr("Ask about it")
            onAccepted: root.question.ask(text)
        }
        TipLabel {
            width: parent.width
            text: root.question.face.answer
            wrapMode: Text.WordWrap
            maximumLineCount: 7
            color: root.question.face.isAnswering ? Theme.ink2 : Theme.ink
        }
        Item {
            width: parent.width
            height: show.height

            Label {
                anchors.verticalCenter: parent.verticalCenter
                visible: root.question.face.isAnswering
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
                onClicked: root.showAsked(root.question.face.itemID)
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
