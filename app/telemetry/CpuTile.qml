import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Processor load, with its last minute.
TileFrame {
    id: root

    required property SystemMonitor system
    readonly property bool isKnown: !isNaN(system.cpuPercent)

    panel: Qt.resolvedUrl("ProcessorPanel.qml")
    value: !isKnown ? "–" : span === TileFrame.Small ? system.cpuText : Math.round(system.cpuPercent)
    unit: isKnown ? "%" : ""
    subLine: isKnown ? system.coreCount === 1 ? qsTr("1 core") : qsTr("%1 cores").arg(system.coreCount) : qsTr("Measuring…")
    reserved: span === TileFrame.Small || !isKnown ? 0 : 42
    tip: isKnown ? qsTr("Processor load: %1 %").arg(Math.round(system.cpuPercent)) : ""

    Sparkline {
        visible: root.span !== TileFrame.Small && root.isKnown
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        // "100 %" has to fit beside it.
        width: root.span === TileFrame.Medium ? 40 : 44
        values: root.system.cpuHistory
        opacity: root.markOpacity
    }
}
