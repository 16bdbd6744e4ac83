import QtQuick
import Ambrel.Kit

// What an empty conversation shows: a greeting, and questions to begin with.
Column {
    id: root

    required property var suggestions

    signal chosen(string text)

    spacing: Theme.space4

    Label {
        width: parent.width
        text: qsTr("Hi! Ask about your agents, or tell me which widgets to show.")
        color: Theme.ink2
        wrapMode: Text.WordWrap
        horizontalAlignment: Text.AlignHCenter
    }
    Flow {
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, 420)
        spacing: Theme.space2

        Repeater {
            model: root.suggestions

            Chip {
                required property string modelData

                text: modelData
                accessibleRole: Accessible.Button
                Accessible.checkable: false
                onClicked: root.chosen(modelData)
            }
        }
    }
}
