import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// What went up and came down over the last minute, on one scale.
NetworkTile {
    id: root

    hasShortUnits: !isWide

    NetworkCurves {
        visible: root.hasRates && !root.isSmall
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        width: parent.width - (root.isWide ? 84 : 58)
        height: Theme.value.line + Theme.subLine.line
        reading: root.reading
    }
}
