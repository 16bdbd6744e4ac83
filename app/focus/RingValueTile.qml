import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// A tile with a ring that is a button, and beside it a figure that ticks over its detail.
TileFrame {
    id: root

    // What is shown, and whether it has to be brought up to date each second.
    property FocusModel model: null
    property bool ticks: false
    property real percent: NaN
    property Tone tone: Theme.orange
    property string control
    property string controlLabel
    property string figure
    property string widestFigure: ticks ? figure.replace(/[0-9]/g, "0") : ""
    property color ink: Theme.ink
    property string detail

    signal controlPressed

    hasHeader: !isSmall
    label: name + ", " + figure + (detail === "" ? "" : ", " + detail)
    tip: number.truncated || words.truncated || isSmall ? label : ""

    LiveTimeline {
        schedule: root.ticks ? LiveTimeline.EverySecond : LiveTimeline.Never
        active: root.live
        onTicked: if (root.model)
            Qt.callLater(root.model.update) // qmllint disable
    }
    RingControl {
        id: ring

        x: root.isSmall ? (parent.width - width) / 2 : -2
        y: root.isSmall ? 0 : Theme.caption.line + 3
        percent: root.percent
        tone: root.tone
        symbol: root.control
        label: root.controlLabel
        onClicked: root.controlPressed()
    }
    TickingText {
        id: number

        visible: !root.isSmall
        x: ring.x + ring.width + 6
        y: Theme.caption.line
        width: parent.width - x + 8
        height: Theme.value.line
        text: root.figure
        widest: root.widestFigure
        font: Theme.timer.font
        color: root.ink
    }
    Label {
        id: words

        x: root.isSmall ? 0 : ring.x + ring.width + 6
        y: parent.height - height
        width: parent.width - x + (root.isSmall ? 0 : 8)
        text: root.isSmall ? root.figure : root.detail
        role: Theme.subLine
        color: Theme.ink2
        horizontalAlignment: root.isSmall ? Text.AlignHCenter : Text.AlignLeft
        Accessible.ignored: true
    }
}
