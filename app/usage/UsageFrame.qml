import QtQuick
import Ambrel.Kit
import Ambrel.Usage

// A usage tile: a value and a smaller line, each with its bar. What it says comes from `face`.
TileFrame {
    id: root

    required property usageFace face
    // The bars begin in one column, clear of the texts at their left.
    readonly property real barStart: Math.max(isNarrow ? 0 : 72, valueBar.sharesRow ? figure.x + figure.width + unit.space : 0, lineBar.visible ? line.implicitWidth : 0) + Theme.space2

    // A narrow tile has the age in the lower line, and a unit that is too long for the row of its figure.
    readonly property bool isAgeBelow: isNarrow && isStale
    readonly property bool hasRoomForUnit: figure.implicitWidth + 4 + unit.implicitWidth <= inner.width
    readonly property string lowerText: isAgeBelow ? face.age : face.line !== "" ? face.line : hasRoomForUnit ? "" : face.unit

    name: captionSize.advanceWidth + 18 <= inner.width ? face.caption : shortTitle
    fact: isNarrow ? "" : face.age
    staleSince: face.isStale ? face.age : ""
    label: face.spoken
    tip: face.help

    TextMetrics {
        id: captionSize
        font: Theme.caption.font
        text: root.face.caption
    }
    Label {
        visible: root.isStale && !root.isAgeBelow
        text: root.face.age
        role: Theme.subLine
        color: Theme.orange.text
        anchors.right: parent.right
        anchors.rightMargin: 18
        Accessible.ignored: true
    }
    TickingText {
        id: figure

        // Words in place of a figure need less weight, and no unit is beside them.
        readonly property bool isWords: root.face.percent < 0 && root.face.unit === ""

        y: Theme.caption.line
        width: Math.min(implicitWidth, root.inner.width - unit.space)
        height: (isWords ? Theme.panelTitle : Theme.value).line
        room: isWords ? root.inner.width : -1
        leastSize: Theme.captionStrong.font.pixelSize
        font: isWords ? Theme.panelTitle.font : Theme.value.font
        text: root.face.value
        color: root.figureColor
        Accessible.ignored: true
    }
    Label {
        id: unit
        readonly property real space: visible ? implicitWidth + 4 : 0
        visible: text !== "" && root.hasRoomForUnit
        text: root.face.unit
        role: Theme.unit
        color: Theme.ink2
        anchors.left: figure.right
        anchors.leftMargin: 4
        anchors.baseline: figure.baseline
        Accessible.ignored: true
    }
    MeterBar {
        id: valueBar
        readonly property bool sharesRow: visible && root.lowerText !== ""
        visible: root.face.percent >= 0
        // Without a line below, the bar has that row to itself.
        x: sharesRow ? root.barStart : 0
        y: sharesRow ? figure.y + (figure.height - height) / 2 : line.y + (line.height - height) / 2
        width: root.inner.width - x
        height: 4
        value: root.face.percent
        color: root.face.isHigh ? Theme.red.mark : Theme.teal.mark
        trackColor: Theme.track
        duration: Theme.valueDuration
        opacity: root.markOpacity
    }
    Label {
        id: line
        y: Theme.caption.line + Theme.value.line
        width: Math.min(implicitWidth, root.inner.width)
        height: Theme.subLine.line
        text: root.lowerText
        role: Theme.subLine
        color: root.isAgeBelow ? Theme.orange.text : Theme.ink2
        Accessible.ignored: true
    }
    MeterBar {
        id: lineBar
        visible: root.face.linePercent >= 0 && !root.isAgeBelow
        x: root.barStart
        y: line.y + (line.height - height) / 2
        width: root.inner.width - x
        height: 4
        value: root.face.linePercent
        color: root.face.isLineHigh ? Theme.red.mark : Theme.teal.mark
        trackColor: Theme.track
        duration: Theme.valueDuration
        opacity: root.markOpacity
    }
}
