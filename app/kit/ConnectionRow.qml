import QtQuick
import Ambrel.Kit

// The settings row of a connection to another program: what it does, or why the last change was not made, and the
// button that makes or undoes it.
SectionRow {
    id: root

    required property bool isConnected
    required property string text
    property string problem
    property string connectText: qsTr("Connect")

    // The state may have changed by hand; connectAsked and disconnectAsked are the button's.
    signal lookAsked
    signal connectAsked
    signal disconnectAsked

    detail: problem !== "" ? problem : text
    detailColor: problem !== "" ? Theme.red.text : Theme.ink2
    Accessible.role: problem !== "" ? Accessible.AlertMessage : Accessible.Grouping
    Accessible.name: problem !== "" ? detail : title
    // The page is made while it can be seen already.
    Component.onCompleted: lookAsked()
    onVisibleChanged: if (visible)
        lookAsked()

    Button {
        text: root.isConnected ? qsTr("Disconnect") : root.connectText
        label: text + ", " + root.title
        onClicked: root.isConnected ? root.disconnectAsked() : root.connectAsked()
    }
}
