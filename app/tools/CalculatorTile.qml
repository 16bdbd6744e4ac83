import QtQuick
import Ambrel.Kit
import Ambrel.Tools

// The value of the expression that was typed last.
TileFrame {
    required property CalculatorModel calculator

    panel: Qt.resolvedUrl("CalculatorPanel.qml")
    value: calculator.face.value
    subLine: calculator.face.detail
    hasCaptionSymbol: isWide
}
