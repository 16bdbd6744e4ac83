import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// The output volume. The wheel turns it.
LiveTile {
    id: root

    required property SoundModel sound

    reading: sound.volume
    name: qsTr("Volume")
    symbol: reading.symbol
    valueColor: reading.isOn ? Theme.ink : Theme.ink2

    MeterBar {
        visible: !root.isSmall && !root.hasMessage
        width: parent.width
        height: 4
        y: root.subLineTop + (Theme.subLine.line - height) / 2 + 1
        value: root.reading.percent
        color: root.reading.isOn ? Theme.blue.mark : Theme.ink3
        trackColor: Theme.track
        duration: Theme.valueDuration
    }
    WheelHandler {
        target: null
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        onWheel: event => root.sound.step(event.angleDelta.y / 120)
    }
}
