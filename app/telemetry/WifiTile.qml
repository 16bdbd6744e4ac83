import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// The wireless network and its signal.
LiveTile {
    id: root

    readonly property bool hasSignal: !hasMessage && !isNaN(reading.percent)

    panel: Qt.resolvedUrl("WiFiPanel.qml")
    symbol: hasMessage ? "wifi.slash" : "wifi"
    valueRole: Theme.rowTitle
    valueColor: hasMessage ? Theme.ink2 : Theme.ink
    hasFigures: !(isSmall && hasSignal)
    hasHeader: !isSmall

    SignalBars {
        visible: root.hasSignal
        x: root.isSmall ? Math.round((parent.width - width) / 2) : parent.width - width
        y: root.isSmall ? 9 : parent.height - height
        percent: root.reading.percent
        color: Theme.levelTone(root.reading.level, Theme.blue).mark
    }
    MarkName {
        visible: root.isSmall && root.hasSignal
        text: root.reading.value
    }
}
