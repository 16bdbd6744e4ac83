import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// What went up and came down over the last minute, on one scale.
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
        id: rates
        visible: root.isKnown
        y: root.hasHeader ? Theme.caption.line : 8
        spacing: 1

        NetworkRate {
            symbol: "arrow.up"
            tone: Theme.violet
            figure: root.system.uploadFigure
            unit: root.system.uploadUnit
            isNarrow: !root.isWide
        }
        NetworkRate {
            symbol: "arrow.down"
            tone: Theme.blue
            figure: root.system.downloadFigure
            unit: root.system.downloadUnit
            isNarrow: !root.isWide
        }
    }
    NetworkCurves {
        visible: root.isKnown && !root.isSmall
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        width: parent.width - (root.isWide ? 84 : 58)
        height: Theme.value.line + Theme.subLine.line
        system: root.system
    }
}
