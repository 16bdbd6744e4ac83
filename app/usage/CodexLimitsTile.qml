import Ambrel.Usage

// The limits that Codex reports.
UsageFrame {
    id: root

    required property AIUsageModel usage

    face: usage.codexTile
}
