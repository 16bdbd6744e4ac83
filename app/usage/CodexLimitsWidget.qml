import Ambrel.Usage

// The limits that Codex reports.
UsageFrame {
    id: root

    required property AIUsageModel usage

    symbol: "chevron.left.forwardslash.chevron.right"
    text: usage.codexTile
}
