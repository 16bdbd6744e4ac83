import QtQuick
import Ambrel.Kit

// A question with two answers.
PanelGround {
    id: root

    property string title
    property string sentence
    property string action
    property bool isCareful: false
    property bool canAccept: true
    readonly property bool isCentred: true
    readonly property bool hangsLeft: false
    default property alias content: slot.data

    // Sets the initial focus.
    function begin() {
        no.forceActiveFocus(Qt.TabFocusReason);
    }

    signal accepted
    signal closeRequested

    implicitWidth: 360
    implicitHeight: column.height + 2 * Theme.space4
    width: implicitWidth
    height: implicitHeight
    radius: Theme.radiusCard
    shadow: "floating"
    Accessible.role: Accessible.Dialog
    Accessible.name: title + " " + sentence

    // Clicks inside must not close it.
    MouseArea {
        anchors.fill: parent
    }
    Column {
        id: column

        x: Theme.space4
        y: Theme.space4
        width: parent.width - 2 * Theme.space4
        spacing: Theme.space2

        TipLabel {
            width: parent.width
            text: root.title
            role: Theme.panelTitle
        }
        Label {
            width: parent.width
            visible: root.sentence !== ""
            text: root.sentence
            color: Theme.ink2
            wrapMode: Text.WordWrap
        }
        Column {
            id: slot

            width: parent.width
        }
        Row {
            anchors.right: parent.right
            spacing: Theme.space2

            Button {
                id: no

                text: qsTr("Cancel")
                onClicked: root.closeRequested()
            }
            Button {
                text: root.action
                kind: root.isCareful ? Button.Secondary : Button.Primary
                isCareful: root.isCareful
                enabled: root.canAccept
                onClicked: root.accepted()
            }
        }
    }
}
