import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// External drives; the first of them can be ejected right here.
LiveTile {
    id: root

    required property LiveModels readings
    readonly property bool hasDrive: !hasMessage && !isNaN(reading.percent)

    panel: Qt.resolvedUrl("VolumesPanel.qml")
    name: isSmall && hasDrive ? reading.value : caption
    valueRole: Theme.rowTitle
    reserved: isSmall || !hasDrive ? 0 : 26

    IconButton {
        visible: root.hasDrive && !root.isSmall
        anchors.right: parent.right
        anchors.rightMargin: -4
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 2
        symbol: "eject"
        enabled: !root.reading.isOn
        label: qsTr("Eject %1").arg(root.reading.value)
        onClicked: root.readings.ejectFirst()
    }
}
