import QtQuick
import Ambrel.Kit

// A share as a bar, between its label and its figure; both may be left out. `value` is 0 to 100 or not a number.
Item {
    id: root

    property real value: NaN
    property string label
    property string figure
    property Tone tone: Theme.teal
    property int thickness: 4
    property int labelWidth: label === "" ? 0 : Scaled.px(44)
    property int figureWidth: figure === "" ? 0 : Scaled.px(34)
    property real markOpacity: 1
    property color figureColor: Theme.ink

    implicitWidth: 216
    implicitHeight: Theme.subLine.line + 2
    Accessible.role: Accessible.ProgressBar
    Accessible.name: label === "" ? figure : label + ", " + figure

    TipLabel {
        id: caption
        text: root.label
        role: Theme.subLine
        color: Theme.ink2
        width: root.labelWidth
        anchors.verticalCenter: parent.verticalCenter
        Accessible.ignored: true
    }
    MeterBar {
        anchors {
            left: caption.right
            leftMargin: root.labelWidth > 0 ? Theme.space2 : 0
            right: amount.left
            rightMargin: root.figureWidth > 0 ? Theme.space2 : 0
            verticalCenter: parent.verticalCenter
        }
        height: root.thickness
        value: root.value
        color: root.tone.mark
        trackColor: Theme.track
        duration: Theme.valueDuration
        opacity: root.markOpacity
    }
    TipLabel {
        id: amount
        text: root.figure
        role: Theme.captionStrong
        color: root.figureColor
        width: root.figureWidth
        horizontalAlignment: Text.AlignRight
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        Accessible.ignored: true
    }
}
