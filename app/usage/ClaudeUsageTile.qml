import Ambrel.Usage

// The Claude plan: its own percentages, or an estimate from the logs.
UsageFrame {
    id: root

    required property AIUsageModel usage

    face: usage.claudeTile
}
