import QtQuick
import Ambrel.Base
import Ambrel.Kit

// The settings row that connects Claude Code's own percentages.
ConnectionRow {
    id: root

    required property ConnectionModel statusLine

    title: qsTr("Claude's own percentages")
    isConnected: statusLine.isConnected
    text: statusLine.text
    problem: statusLine.problem
    onLookAsked: statusLine.look()
    onConnectAsked: statusLine.install()
    onDisconnectAsked: statusLine.remove()
}
