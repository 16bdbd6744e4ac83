import QtQuick
import Ambrel.Kit

// A button of one symbol; its label is what the tip and assistive programs say.
Pressable {
    id: root

    property string symbol
    property int size: 28
    property int symbolSize: 18
    property color ink: Theme.ink2
    // Chosen, as a tool that is in hand.
    property bool isOn: false

    tip: label
    implicitWidth: Scaled.px(size)
    implicitHeight: implicitWidth
    scale: down ? Theme.pressScale : 1

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusSmall
        color: root.isOn ? Theme.blue.soft : root.down ? Theme.greySoft : Theme.card
        opacity: root.isOn || root.hovered || root.down ? 1 : 0

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.hoverDuration
                easing.type: Easing.OutCubic
            }
        }
    }

    Symbol {
        anchors.centerIn: parent
        name: root.symbol
        size: root.symbolSize
        color: !root.enabled ? Theme.ink3 : root.isOn ? Theme.blue.text : root.hovered ? Theme.ink : root.ink
        opacity: root.enabled ? 1 : 0.6
    }

    FocusRing {
        gap: 0
        targetRadius: Theme.radiusSmall
    }
}
