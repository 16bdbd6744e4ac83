import QtQuick
import Ambrel.Kit
import Ambrel.Usage

// The settings row that connects Claude Code's own percentages.
SectionRow {
    id: root

    required property ClaudeStatusLineModel statusLine
    readonly property bool hasProblem: statusLine.problem !== ""

    title: qsTr("Claude's own percentages")
    detail: hasProblem ? statusLine.problem : statusLine.text
    detailColor: hasProblem ? Theme.red.text : Theme.ink2
    Accessible.role: hasProblem ? Accessible.AlertMessage : Accessible.Grouping
    Accessible.name: hasProblem ? detail : title
    // The page is made while it can be seen already.
    Component.onCompleted: statusLine.look()
    onVisibleChanged: if (visible)
        statusLine.look()

    Button {
        text: root.statusLine.isConnected ? qsTr("Disconnect") : qsTr("Connect")
        label: text + ", " + root.title
        onClicked: root.statusLine.isConnected ? root.statusLine.remove() : root.statusLine.install()
    }
}
