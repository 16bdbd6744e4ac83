import QtQuick
import Ambrel.Kit

// A ring that is a button: its share, and what a press does.
Pressable {
    id: root

    property real percent: NaN
    property Tone tone: Theme.orange
    property string symbol

    tip: label
    implicitWidth: Scaled.px(32)
    implicitHeight: implicitWidth
    scale: down ? Theme.pressScale : 1

    Ring {
        anchors.fill: parent
        value: root.percent
        tone: root.tone
        symbol: root.symbol
        figureColor: root.hovered ? root.tone.text : Theme.ink
        Accessible.ignored: true
    }
    FocusRing {
        targetRadius: width / 2
    }
}
