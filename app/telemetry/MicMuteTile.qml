import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Mutes the microphone.
SwitchTile {
    required property SoundModel sound

    onActivated: sound.toggleMicrophone()
    symbol: hasMessage ? "mic.slash" : "mic"
    litTone: Theme.neutral
    unlitTone: Theme.red
    Accessible.checked: !hasMessage && !reading.isOn
}
