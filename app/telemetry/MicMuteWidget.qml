import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Mutes the microphone.
SwitchTile {
    required property SoundModel sound

    reading: sound.microphone
    name: qsTr("Mic Mute")
    symbol: "mic"
    onTone: Theme.neutral
    offTone: Theme.red
    Accessible.checked: sound.isMicrophoneMuted
}
