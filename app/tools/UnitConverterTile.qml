import QtQuick
import Ambrel.Kit
import Ambrel.Tools

// The amount that was typed last, in the other unit.
TileFrame {
    required property UnitConverterModel units

    panel: Qt.resolvedUrl("UnitConverterPanel.qml")
    value: units.face.value
    subLine: units.face.detail
    hasCaptionSymbol: isWide
}
