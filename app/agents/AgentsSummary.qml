import QtQuick
import Ambrel.Agents
import Ambrel.Kit

// Up to three counts, each only above 0.
Row {
    id: root

    required property AgentsModel agents

    spacing: 10

    Pill {
        visible: root.agents.needsInputCount > 0
        text: qsTr("%1 need you").arg(root.agents.needsInputCount)
        symbol: "hand.raised.fill"
        tone: Theme.orange
    }
    Pill {
        visible: root.agents.workingCount > 0
        text: qsTr("%1 working").arg(root.agents.workingCount)
        symbol: "circle.dotted"
        tone: Theme.blue
    }
    Pill {
        visible: root.agents.finishedCount > 0
        text: qsTr("%1 done").arg(root.agents.finishedCount)
        symbol: "checkmark.circle.fill"
        tone: Theme.green
    }
}
