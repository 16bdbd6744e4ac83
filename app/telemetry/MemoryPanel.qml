import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Memory in use, and how hard it is pressed.
Popover {
    id: root

    required property SystemMonitor system
    required property LiveModels readings

    title: qsTr("Memory")
    symbol: "memorychip"
    implicitHeight: column.y + column.height + Theme.space4 + 48

    headerItems: Label {
        anchors.verticalCenter: parent.verticalCenter
        text: root.readings.pressure.message === "" ? root.readings.pressure.value : root.readings.pressure.message
        role: Theme.small
        color: root.readings.pressure.level === 0 ? Theme.ink2 : Theme.levelTone(root.readings.pressure.level, Theme.neutral).text
    }

    LiveNeed {
        readings: root.readings
        parts: ["pressure"]
        active: root.open
    }
    Column {
        id: column
        x: Theme.space4
        y: Theme.space3
        width: parent.width - 2 * Theme.space4
        spacing: Theme.space2

        Meter {
            width: parent.width
            thickness: 6
            value: root.system.memoryPercent
            tone: Theme.gaugeTone(root.system.memoryPercent, Theme.violet)
            figure: root.system.memoryPercentText
        }
        TipLabel {
            width: parent.width
            text: root.system.memoryText
            role: Theme.body
        }
        TipLabel {
            width: parent.width
            visible: text !== ""
            text: root.readings.pressure.subLine
            role: Theme.body
        }
        Label {
            width: parent.width
            text: root.readings.pressure.help
            role: Theme.small
            color: Theme.ink2
            wrapMode: Text.WordWrap
        }
    }
}
