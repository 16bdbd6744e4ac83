import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Memory in use, and how hard it is pressed.
LivePanel {
    id: root

    readonly property tileReading memory: area.face("memory").reading
    readonly property tileReading pressure: area.face("memoryPressure").reading

    title: qsTr("Memory")
    symbol: "memorychip"
    fitted: column
    needs: ["memoryPressure"]

    headerItems: Label {
        anchors.verticalCenter: parent.verticalCenter
        text: root.pressure.message === "" ? root.pressure.value : root.pressure.message
        role: Theme.small
        color: root.pressure.level === 0 ? Theme.ink2 : Theme.levelTone(root.pressure.level, Theme.neutral).text
    }

    PanelColumn {
        id: column
        y: Theme.space3
        spacing: Theme.space2

        Meter {
            width: parent.width
            thickness: 6
            value: root.memory.percent
            tone: Theme.gaugeTone(root.memory.percent, Theme.violet)
            figure: isNaN(root.memory.percent) ? "" : root.memory.figure
        }
        TipLabel {
            width: parent.width
            text: root.memory.tip
            role: Theme.body
        }
        TipLabel {
            width: parent.width
            visible: text !== ""
            text: root.pressure.subLine
            role: Theme.body
        }
        Label {
            width: parent.width
            text: root.pressure.help
            role: Theme.small
            color: Theme.ink2
            wrapMode: Text.WordWrap
        }
    }
}
