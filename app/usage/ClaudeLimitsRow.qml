import QtQuick
import Ambrel.Kit
import Ambrel.Usage

// The settings row "Claude's own percentages".
Item {
    id: root

    required property ClaudeStatusLineModel statusLine

    implicitWidth: 480
    implicitHeight: Math.max(texts.height, button.height)
    Accessible.role: Accessible.Grouping
    Accessible.name: title.text
    onVisibleChanged: if (visible)
        statusLine.look()

    Column {
        id: texts
        spacing: 2
        anchors {
            left: parent.left
            right: button.left
            rightMargin: Theme.space4
            verticalCenter: parent.verticalCenter
        }

        Label {
            id: title
            width: parent.width
            text: qsTr("Claude's own percentages")
            role: Theme.rowTitle
        }
        Label {
            width: parent.width
            text: root.statusLine.text
            role: Theme.small
            color: Theme.ink2
            wrapMode: Text.WordWrap
        }
        Label {
            visible: text !== ""
            width: parent.width
            text: root.statusLine.problem
            role: Theme.small
            color: Theme.red.text
            wrapMode: Text.WordWrap
            Accessible.role: Accessible.AlertMessage
        }
    }
    Button {
        id: button
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: root.statusLine.isConnected ? qsTr("Disconnect") : qsTr("Connect")
        label: text + ", " + title.text
        onClicked: root.statusLine.isConnected ? root.statusLine.remove() : root.statusLine.install()
    }
}
