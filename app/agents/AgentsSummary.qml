import QtQuick
import Ambrel.Agents
import Ambrel.Kit

// Up to three counts, each only above 0.
Row {
    id: root

    required property AgentsModel agents

    spacing: 10

    Pill {
        visible: root.agents.face.needsInput > 0
        text: qsTr("%1 need you").arg(root.agents.face.needsInput)
        symbol: "hand.raised.fill"
        tone: Theme.orange
    }
    Pill {
        visible: root.agents.face.working > 0
        text: qsTr("%1 working").arg(root.agents.face.working)
        symbol: "circle.dotted"
        tone: Theme.blue
    }
    Pill {
        visible: root.agents.face.finished > 0
        text: qsTr("%1 done").arg(root.agents.face.finished)
        symbol: "checkmark.circle.fill"
        tone: Theme.green
    }
}
