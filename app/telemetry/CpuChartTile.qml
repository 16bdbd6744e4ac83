import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Processor load over the last minute.
TileFrame {
    id: root

    required property SystemMonitor system

    panel: Qt.resolvedUrl("ProcessorPanel.qml")
    fact: isSmall ? "" : system.cpuText
    value: isSmall ? system.cpuText === "" ? "–" : system.cpuText : ""
    subLine: isSmall || system.cpuText !== "" ? "" : qsTr("Measuring…")
    label: system.cpuText === "" ? qsTr("%1, measuring").arg(name) : name + ", " + system.cpuText
    tip: qsTr("Processor load over the last minute")

    Sparkline {
        visible: !root.isSmall && root.system.cpuText !== ""
        y: Theme.caption.line + 2
        width: parent.width
        height: parent.height - y
        capacity: root.system.historyCapacity
        values: root.system.cpuHistory
    }
}
