import QtQuick
import Ambrel.Kit

// Keyboard hints and a summary of the history.
Item {
    id: root

    property string summary
    readonly property var hints: [
        { keys: [qsTr("Enter")], text: qsTr("copies") },
        { keys: [qsTr("Alt"), "1"], text: qsTr("copies a pin") },
        { keys: [qsTr("Delete")], text: qsTr("removes") },
        { keys: [qsTr("Space")], text: qsTr("previews") }
    ]

    implicitHeight: row.height
    height: implicitHeight

    Row {
        id: row

        spacing: Theme.space4

        Repeater {
            model: root.hints

            Row {
                id: hint

                required property var modelData

                spacing: 6

                Repeater {
                    model: hint.modelData.keys

                    KeyCap {
                        required property string modelData

                        text: modelData
                    }
                }
                Label {
                    text: hint.modelData.text
                    role: Theme.subLine
                    color: Theme.ink2
                    anchors.verticalCenter: parent.verticalCenter
                }
            }
        }
    }
    Label {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: root.summary
        role: Theme.subLine
        color: Theme.ink2
    }
}
