import QtQuick
import Ambrel.Base
import Ambrel.Kit

// The settings row of a connection to another program: what it does, or why the last change was not made, and the
// button that makes or undoes it.
SectionRow {
    id: root

    required property ConnectionModel modelData
    property string connectText: qsTr("Connect")
    readonly property bool hasProblem: modelData.problem !== ""

    title: modelData.title
    detail: hasProblem ? modelData.problem : modelData.text
    detailColor: hasProblem ? Theme.red.text : Theme.ink2
    Accessible.role: hasProblem ? Accessible.AlertMessage : Accessible.Grouping
    Accessible.name: hasProblem ? detail : title
    // The page is made while it can be seen already.
    Component.onCompleted: modelData.look()
    onVisibleChanged: if (visible)
        modelData.look()

    Button {
        text: root.modelData.isConnected ? qsTr("Disconnect") : root.connectText
        label: text + ", " + root.title
        onClicked: root.modelData.isConnected ? root.modelData.remove() : root.modelData.install()
    }
}
