import QtQuick
import Ambrel.Kit
import Ambrel.Stores

// The note, to write.
Popover {
    id: root

    required property QuickNote note

    signal copyAsked(string text)

    implicitWidth: Scaled.px(400)
    implicitHeight: Scaled.px(340)
    title: qsTr("Quick Note")
    symbol: "note.text"
    onAboutToOpen: box.toEnd()
    onOpenChanged: if (!open)
        note.finish()

    Component.onCompleted: box.show(note.text)

    headerItems: [
        LinkButton {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.note.face.canBringBack
            text: qsTr("Bring back")
            tip: qsTr("The text before it was emptied")
            onClicked: root.note.bringBack()
        },
        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            symbol: "doc.on.doc"
            label: qsTr("Copy the note")
            enabled: !root.note.face.isEmpty
            onClicked: root.copyAsked(root.note.text)
        }
    ]

    TextBox {
        id: box

        anchors.fill: parent
        anchors.margins: Theme.space2
        anchors.bottomMargin: unsaved.visible ? unsaved.height + 2 * Theme.space2 : Theme.space2
        focus: true
        label: qsTr("Quick Note")
        hint: qsTr("Write anything. It is kept as you type.")
        onEdited: root.note.text = text
        onActiveFocusChanged: if (!activeFocus)
            root.note.finish()
    }
    Connections {
        target: root.note

        function onTextChanged() {
            box.show(root.note.text);
        }
    }
    UnsavedLine {
        id: unsaved

        problem: root.note.face.problem
    }
}
