import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// The output's volume, and the switches of output and microphone.
LivePanel {
    id: root

    required property SoundModel sound
    readonly property tileReading output: area.face("volume").reading
    readonly property tileReading microphone: area.face("micMute").reading

    title: qsTr("Volume")
    symbol: output.symbol
    fitted: column

    PanelColumn {
        id: column

        y: Theme.space3

        Row {
            width: parent.width
            height: Scaled.px(32)
            spacing: Theme.space2

            IconButton {
                id: mute

                anchors.verticalCenter: parent.verticalCenter
                symbol: root.output.symbol
                label: !root.output.isMissing && !root.output.isOn ? qsTr("Unmute") : qsTr("Mute")
                enabled: !root.output.isMissing
                onClicked: root.sound.toggleMuted()
            }
            Slider {
                width: parent.width - mute.width - figure.width - 2 * Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                enabled: !root.output.isMissing
                focus: true
                label: qsTr("Output volume")
                figure: figure.text
                value: root.output.isMissing ? 0 : root.output.percent
                onMoved: value => root.sound.setPercent(value)
            }
            TipLabel {
                id: figure
                width: Scaled.px(44)
                anchors.verticalCenter: parent.verticalCenter
                text: root.output.message === "" ? root.output.figure : "–"
                role: Theme.captionStrong
                horizontalAlignment: Text.AlignRight
            }
        }
        Section {
            SwitchRow {
                title: qsTr("Output")
                detail: !root.output.isMissing ? "" : root.output.message
                enabled: !root.output.isMissing
                checked: root.output.isOn
                onToggled: checked => root.sound.setMuted(!checked)
            }
            SwitchRow {
                title: qsTr("Microphone")
                detail: !root.microphone.isMissing ? "" : root.microphone.message
                enabled: !root.microphone.isMissing
                checked: root.microphone.isOn
                onToggled: () => root.sound.toggleMicrophone()
            }
        }
    }
}
