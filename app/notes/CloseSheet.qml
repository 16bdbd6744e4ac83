import QtQuick
import Ambrel.Kit
import Ambrel.Notes

// The question before a review goes. Escape and the first button keep it.
FocusScope {
    id: root

    required property ScreenNotesModel notes

    Accessible.role: Accessible.Dialog
    Accessible.name: title.text
    Keys.onEscapePressed: root.notes.answerClose(false)
    onVisibleChanged: if (visible)
        keep.forceActiveFocus()

    Rectangle {
        anchors.fill: parent
        color: Theme.panel
        opacity: 0.75
    }
    // Nothing below can be clicked.
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
    PanelGround {
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.space6, Scaled.px(460))
        height: column.height + 2 * Theme.space5

        Column {
            id: column

            x: Theme.space6
            y: Theme.space5
            width: parent.width - 2 * Theme.space6
            spacing: Theme.space3

            Label {
                id: title

                width: parent.width
                text: qsTr("Close this review?")
                role: Theme.title
                Accessible.role: Accessible.Heading
            }
            Label {
                width: parent.width
                text: qsTr("Its captures and notes are not kept. Export the review first to send it.")
                color: Theme.ink2
                wrapMode: Text.WordWrap
            }
            Row {
                anchors.right: parent.right
                spacing: Theme.space2

                Button {
                    id: keep

                    size: 36
                    focus: true
                    text: qsTr("Keep open")
                    onClicked: root.notes.answerClose(false)
                }
                Button {
                    size: 36
                    isCareful: true
                    text: qsTr("Close the review")
                    onClicked: root.notes.answerClose(true)
                }
            }
        }
    }
}
