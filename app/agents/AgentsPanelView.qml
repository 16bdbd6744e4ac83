import QtQuick
import Ambrel.Agents
import Ambrel.Base
import Ambrel.Kit

// The sessions of all agents.
Popover {
    id: root

    required property AgentsModel agents
    required property Presentation presentation

    signal settingsAsked(string tab)

    implicitWidth: Scaled.px(620)
    implicitHeight: Scaled.px(320)
    title: qsTr("AI Agents")
    symbol: "sparkles"

    headerItems: [
        AgentsSummary {
            anchors.verticalCenter: parent.verticalCenter
            agents: root.agents
        },
        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            label: qsTr("Agent settings")
            symbol: "gearshape.fill"
            onClicked: root.settingsAsked("agents")
        }
    ]

    EmptyState {
        anchors.centerIn: parent
        visible: root.agents.face.count === 0
        symbol: "sparkles"
        title: qsTr("No agent activity")
        sentence: qsTr("Sessions from the last 6 hours appear here.")
    }

    AgentsList {
        anchors.fill: parent
        visible: root.agents.face.count > 0
        agents: root.agents
        isShown: root.presentation.isShown
        onSessionChosen: id => {
            root.agents.openSession(id);
            root.presentation.dismiss();
        }
    }
}
