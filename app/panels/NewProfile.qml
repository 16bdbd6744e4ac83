import QtQuick
import Ambrel.Kit

// The name of a new profile, and when it is chosen.
FocusScope {
    id: root

    readonly property list<string> triggers: ["", "builtinOnly", "external"]
    property int choice: 0

    signal added(string name, string trigger)
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
            onAccepted: root.added(text, root.triggers[root.choice])
            Component.onCompleted: input.forceActiveFocus()
        }
        Segments {
            width: parent.width
            label: qsTr("Chosen")
            options: [qsTr("By hand"), qsTr("Laptop"), qsTr("Desk")]
            hasSmallType: true
            current: root.choice
            onChosen: index => root.choice = index
        }
        Row {
            spacing: Theme.space1

            Button {
                size: 28
                kind: Button.Primary
                text: qsTr("Add")
                enabled: name.text.trim() !== ""
                onClicked: root.added(name.text, root.triggers[root.choice])
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
