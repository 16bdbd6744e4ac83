import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// What goes up and what comes down, over the hardware interfaces.
TileFrame {
    id: root

    required property SystemMonitor system
    readonly property bool isKnown: system.downloadFigure !== ""
    readonly property string spokenRates: isKnown ? qsTr("up %1 %2, down %3 %4").arg(system.uploadFigure).arg(system.uploadUnit).arg(system.downloadFigure).arg(system.downloadUnit) : qsTr("measuring")

    panel: Qt.resolvedUrl("NetworkPanel.qml")
    label: name + ", " + spokenRates
    tip: qsTr("Network: %1").arg(spokenRates)
    value: isKnown ? "" : "–"
    subLine: isKnown ? "" : qsTr("Measuring…")

    Column {
        visible: root.isKnown
        y: root.hasHeader ? Theme.caption.line : 8
        spacing: 1

        NetworkRate {
            symbol: "arrow.up"
            tone: Theme.violet
            figure: root.system.uploadFigure
            unit: root.system.uploadUnit
            isNarrow: root.span === TileFrame.Small
        }
        NetworkRate {
            symbol: "arrow.down"
            tone: Theme.blue
            figure: root.system.downloadFigure
            unit: root.system.downloadUnit
            isNarrow: root.span === TileFrame.Small
        }
    }
}
