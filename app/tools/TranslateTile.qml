import QtQuick
import Ambrel.Kit
import Ambrel.Tools

// Into which language a click translates the clipboard's text.
TileFrame {
    required property TranslateModel translator

    panel: Qt.resolvedUrl("TranslatePanel.qml")
    value: translator.face.code
    subLine: isSmall ? "" : translator.face.targetName
    label: qsTr("%1, into %2").arg(title).arg(translator.face.targetName)
    tip: label
}
