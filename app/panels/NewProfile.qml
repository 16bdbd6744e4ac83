import QtQuick
import Ambrel.Kit

// The name of a new profile. It is chosen by hand until its menu says otherwise.
FocusScope {
    id: root

    signal added(string name)
    signal cancelled

    implicitHeight: column.height
    Keys.onEscapePressed: root.cancelled()

    Column {
        id: column
        width: parent.width
        spacing: 6

        Field {
            id: name
            width: parent.width
            focus: true
            hint: qsTr("Name")
            maximumLength: 40
            onAccepted: root.added(text)
            Component.onCompleted: input.forceActiveFocus()
        }
        Flow {
            width: parent.width
            spacing: Theme.space1

            Button {
                size: 28
                kind: Button.Primary
                text: qsTr("Add")
                enabled: name.text.trim() !== ""
                onClicked: root.added(name.text)
            }
            Button {
                size: 28
                kind: Button.Quiet
                text: qsTr("Cancel")
                onClicked: root.cancelled()
            }
        }
    }
}
