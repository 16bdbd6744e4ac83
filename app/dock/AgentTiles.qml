import QtQuick
import Ambrel.Agents
import Ambrel.Dock
import Ambrel.Usage

TileSet {
    id: root

    tiles: ({
            "agents": agentsTile,
            "claudeUsage": claudeUsageTile,
            "codexLimits": codexLimitsTile
        })

    readonly property Component agentsTile: AgentsWidget {
        agents: root.context.agents
    }
    readonly property Component claudeUsageTile: ClaudeUsageWidget {
        usage: root.context.usage
    }
    readonly property Component codexLimitsTile: CodexLimitsWidget {
        usage: root.context.usage
    }
}
