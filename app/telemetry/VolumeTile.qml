import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// The output volume. The wheel turns it.
LiveTile {
    id: root

    required property SoundModel sound

    panel: Qt.resolvedUrl("SoundPanel.qml")
    menuText: !reading.isOn && !hasMessage ? qsTr("Unmute") : qsTr("Mute")
    menuSymbol: "speaker.slash"
    onMenuChosen: sound.toggleMuted()
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
    // A tile that slides under the pointer while the bar is scrolled does not take the wheel from it.
    HoverHandler {
        id: pointer

        property point entered
        property bool hasMoved: false

        onHoveredChanged: {
            entered = point.scenePosition;
            hasMoved = false;
        }
        onPointChanged: {
            const at = point.scenePosition;
            if (hovered && (Math.abs(at.x - entered.x) > 2 || Math.abs(at.y - entered.y) > 2))
                hasMoved = true;
        }
    }
    WheelHandler {
        target: null
        enabled: pointer.hasMoved && !root.hasMessage
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        onWheel: event => root.sound.step(event.angleDelta.y / 120)
    }
}
