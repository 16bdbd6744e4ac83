import QtQuick
import Ambrel.Kit

// A number on a line. `moved` says which is wanted, in whole steps; arrows, Page keys, Home and End move it too.
FocusScope {
    id: root

    property real from: 0
    property real to: 100
    property real stepSize: 1
    property real value: 0
    property string label
    // The value in words.
    property string figure
    readonly property real position: to > from ? Math.max(0, Math.min(1, (value - from) / (to - from))) : 0

    signal moved(real value)

    function moveTo(wanted: real) {
        const steps = Math.round((wanted - from) / stepSize);
        const next = Math.max(from, Math.min(to, from + steps * stepSize));
        if (next !== value)
            moved(next);
    }

    implicitWidth: 160
    implicitHeight: 24
    opacity: enabled ? 1 : 0.5
    activeFocusOnTab: enabled
    Accessible.role: Accessible.Slider
    Accessible.name: label + (figure === "" ? "" : ", " + figure)
    Accessible.focusable: true
    Accessible.onIncreaseAction: root.moveTo(root.value + root.stepSize)
    Accessible.onDecreaseAction: root.moveTo(root.value - root.stepSize)
    Keys.onPressed: event => {
        const wanted = {
            [Qt.Key_Left]: value - stepSize,
            [Qt.Key_Down]: value - stepSize,
            [Qt.Key_Right]: value + stepSize,
            [Qt.Key_Up]: value + stepSize,
            [Qt.Key_PageDown]: value - 10 * stepSize,
            [Qt.Key_PageUp]: value + 10 * stepSize,
            [Qt.Key_Home]: from,
            [Qt.Key_End]: to
        }[event.key];
        if (wanted === undefined)
            return;
        moveTo(wanted);
        event.accepted = true;
    }

    MeterBar {
        id: track
        x: 8
        width: parent.width - 16
        height: 4
        anchors.verticalCenter: parent.verticalCenter
        value: root.position * 100
        color: Theme.accent
        trackColor: Theme.track
    }
    Rectangle {
        x: root.position * track.width
        anchors.verticalCenter: parent.verticalCenter
        width: 16
        height: 16
        radius: 8
        color: "white"
        border.width: Theme.dark ? 0 : 1
        border.color: Theme.ink3
    }
    MouseArea {
        anchors.fill: parent
        preventStealing: true
        function follow(x: real) {
            root.moveTo(root.from + (x - 8) / track.width * (root.to - root.from));
        }
        onPressed: mouse => follow(mouse.x)
        onPositionChanged: mouse => follow(mouse.x)
    }
    FocusRing {
        gap: 0
        targetRadius: height / 2
    }
}
