import QtQuick
import Ambrel.Kit

// A share as a ring with its figure inside. `value` is 0 to 100, not a number when unknown; `figure` is its text.
Item {
    id: root

    property real value: NaN
    property string figure
    property Tone tone: Theme.teal
    property string symbol
    property real markOpacity: 1
    property color figureColor: Theme.ink

    implicitWidth: Scaled.px(36)
    implicitHeight: implicitWidth
    Accessible.role: Accessible.ProgressBar
    Accessible.name: figure

    RingArc {
        anchors.fill: parent
        value: root.value
        color: root.tone.mark
        trackColor: Theme.track
        duration: Theme.valueDuration
        lineWidth: 4 * Theme.textScale
        opacity: root.markOpacity
    }
    Label {
        anchors.centerIn: parent
        visible: root.symbol === ""
        text: root.figure
        role: Theme.ringFigure
        color: root.figureColor
        Accessible.ignored: true
    }
    Symbol {
        anchors.centerIn: parent
        visible: root.symbol !== ""
        name: root.symbol
        size: 14
        color: root.figureColor
    }
}
