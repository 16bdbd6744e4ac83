import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// The output's volume, and the switches of output and microphone.
Popover {
    id: root

    required property SoundModel sound

    title: qsTr("Volume")
    symbol: sound.volume.symbol
    implicitHeight: 224

    Row {
        id: level
        x: Theme.space4
        y: Theme.space3
        width: parent.width - 2 * Theme.space4
        height: 32
        spacing: Theme.space2

        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            symbol: root.sound.volume.symbol
            label: root.sound.isMuted ? qsTr("Unmute") : qsTr("Mute")
            enabled: root.sound.hasOutput
            onClicked: root.sound.toggleMuted()
        }
        Slider {
            id: slider
            width: parent.width - 28 - figure.width - 2 * Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            enabled: root.sound.hasOutput
            focus: true
            label: qsTr("Output volume")
            figure: figure.text
            value: root.sound.percent
            onMoved: value => root.sound.percent = value
        }
        TipLabel {
            id: figure
            width: Math.round(44 * Theme.textScale)
            anchors.verticalCenter: parent.verticalCenter
            text: root.sound.volume.message === "" ? root.sound.volume.figure : "–"
            role: Theme.captionStrong
            horizontalAlignment: Text.AlignRight
        }
    }
    Section {
        x: Theme.space4
        width: parent.width - 2 * Theme.space4
        anchors.top: level.bottom
        anchors.topMargin: Theme.space3

        SwitchRow {
            title: qsTr("Output")
            detail: root.sound.hasOutput ? "" : root.sound.volume.message
            enabled: root.sound.hasOutput
            checked: root.sound.hasOutput && !root.sound.isMuted
            onToggled: checked => root.sound.isMuted = !checked
        }
        SwitchRow {
            title: qsTr("Microphone")
            detail: root.sound.hasMicrophone ? "" : root.sound.microphone.message
            enabled: root.sound.hasMicrophone
            checked: root.sound.hasMicrophone && !root.sound.isMicrophoneMuted
            onToggled: checked => root.sound.isMicrophoneMuted = !checked
        }
    }
}
