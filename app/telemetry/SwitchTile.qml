import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// A tile that is a switch: its symbol in a disc, which is filled while the switch is on.
LiveTile {
    id: root

    // What the disc is filled with when on, and when off; a neutral one is plain.
    property Tone litTone: Theme.blue
    property Tone unlitTone: Theme.neutral
    readonly property Tone tone: reading.isOn ? litTone : unlitTone
    readonly property bool isPlain: tone === Theme.neutral

    span: TileFrame.Small
    hasHeader: !isSmall
    hasFigures: !isSmall
    isPressable: true
    accessibleRole: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: reading.isOn
    valueRole: Theme.rowTitle
    reserved: isSmall || hasMessage ? 0 : Scaled.px(40)

    Rectangle {
        visible: !root.hasMessage
        x: root.isSmall ? (parent.width - width) / 2 : parent.width - width
        y: root.isSmall ? 0 : parent.height - height + 2
        width: Scaled.px(root.isSmall ? 36 : 32)
        height: width
        radius: width / 2
        color: root.isPlain ? Theme.greySoft : root.tone.soft

        Symbol {
            anchors.centerIn: parent
            name: root.reading.symbol === "" ? root.symbol : root.reading.symbol
            size: 20
            color: root.isPlain ? Theme.ink2 : root.tone.text
        }
    }
    MarkName {
        visible: root.isSmall && !root.hasMessage
        text: root.reading.value
    }
}
