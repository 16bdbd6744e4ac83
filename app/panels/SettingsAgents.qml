import QtQuick
import Ambrel.Agents
import Ambrel.Kit

SettingsPage {
    id: root

    property AgentsArea agents: null

    Section {
        SwitchRow {
            title: qsTr("Follow AI agents")
            detail: qsTr("Reads only metadata: status, tool name, project folder, timestamps. Sessions from the last 6 hours are listed.")
            checked: root.settings.agentsEnabled
            onToggled: checked => root.settings.agentsEnabled = checked
        }
        SwitchRow {
            title: qsTr("Notifications")
            detail: qsTr("When an agent needs you or has finished")
            enabled: root.settings.agentsEnabled
            checked: root.settings.agentNotifications
            onToggled: checked => root.settings.agentNotifications = checked
        }
    }
    Section {
        visible: root.agents !== null

        Repeater {
            model: root.agents ? [root.agents.claudeHooks, root.agents.codexHooks] : []

            ConnectionRow {
                connectText: qsTr("Connect %1").arg(title)
            }
        }
    }
}
