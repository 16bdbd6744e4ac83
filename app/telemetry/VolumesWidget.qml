import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// External drives; the first of them can be ejected right here.
LiveTile {
    id: root

    readonly property bool hasDrive: !hasMessage && !isNaN(reading.percent)

    signal ejectAsked

    name: isSmall && hasDrive ? reading.value : qsTr("Volumes")
    label: qsTr("Volumes, %1").arg(reading.spoken)
    symbol: "externaldrive"
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
        onClicked: root.ejectAsked()
    }
}
