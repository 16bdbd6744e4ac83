import QtQuick
import Ambrel.Agents
import Ambrel.Kit

// How many sessions need the user, work and are done; only counts above 0 are shown. A single one is shown itself.
TileFrame {
    id: root

    required property AgentsModel agents
    property agentsFace face: agents.face
    readonly property bool hasWaiting: face.needsInput > 0
    readonly property bool hasWorking: face.working > 0
    readonly property bool hasFinished: face.finished > 0
    readonly property bool isAlone: face.count === 1 && !isNarrow
    readonly property bool isQuiet: !hasWaiting && !hasWorking && !hasFinished && !isAlone

    panel: Qt.resolvedUrl("AgentsPanelView.qml")
    label: name + ", " + face.summary
    tip: face.summary
    value: isQuiet ? (face.count > 0 ? qsTr("Idle") : qsTr("Quiet")) : ""
    valueColor: Theme.ink2
    subLine: !isQuiet ? "" : face.count === 0 ? qsTr("No sessions") : face.count === 1 ? qsTr("1 session") : qsTr("%1 sessions").arg(face.count)

    AgentTile {
        visible: root.isAlone
        y: root.valueTop + 1
        width: parent.width
        height: Scaled.px(34)
        session: root.face.first
        onAction: root.agents.openSession(session.sessionId)
    }
    Row {
        id: row

        readonly property int shown: (waiting.visible ? 1 : 0) + (working.visible ? 1 : 0) + (finished.visible ? 1 : 0)
        readonly property real used: (waiting.visible ? waiting.width : 0) + (working.visible ? working.width : 0) + (finished.visible ? finished.width : 0)

        visible: !root.isQuiet && !root.isAlone
        y: root.hasHeader ? Theme.caption.line : 8
        spacing: shown > 1 ? Math.max(Theme.space2, Math.min(40, (parent.width - used) / (shown - 1))) : 0

        AgentCount {
            id: waiting

            visible: root.hasWaiting
            count: root.face.needsInput
            word: qsTr("need you")
            tone: Theme.orange
        }
        AgentCount {
            id: working

            visible: root.hasWorking && !(root.isNarrow && root.hasWaiting)
            count: root.face.working
            word: qsTr("working")
            tone: Theme.blue
        }
        AgentCount {
            id: finished

            visible: root.hasFinished && !(root.isNarrow && (root.hasWaiting || root.hasWorking))
            count: root.face.finished
            word: qsTr("done")
            tone: Theme.green
        }
    }
}
