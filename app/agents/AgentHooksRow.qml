import QtQuick
import Ambrel.Base
import Ambrel.Kit

// The settings row that connects an agent's tool.
ConnectionRow {
    id: root

    required property ConnectionModel hooks

    isConnected: hooks.isConnected
    text: hooks.text
    problem: hooks.problem
    connectText: qsTr("Connect %1").arg(title)
    onLookAsked: hooks.look()
    onConnectAsked: hooks.install()
    onDisconnectAsked: hooks.remove()
}
