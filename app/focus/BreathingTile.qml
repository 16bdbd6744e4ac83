import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// A minute of slow breathing, with a disc to breathe with. A click starts and stops it.
TileFrame {
    id: root

    required property BreathingExercise breathing

    label: name + ", " + breathing.face.title + ", " + breathing.face.detail
    value: isSmall ? "" : isMedium ? breathing.face.shortTitle : breathing.face.title
    valueRole: Theme.rowTitle
    subLine: isSmall ? "" : isMedium ? breathing.face.shortDetail : breathing.face.detail
    reserved: isSmall ? 0 : isMedium ? 36 : 48
    tip: breathing.face.isRunning ? qsTr("Click to stop") : qsTr("Click to breathe with the disc")
    onActivated: breathing.toggle()

    BreathingDisc {
        breathing: root.breathing
        size: root.isSmall || root.isMedium ? 34 : 44
        x: root.isSmall ? (parent.width - width) / 2 : parent.width - width + (root.isMedium ? 4 : 0)
        y: root.isSmall ? 0 : root.isMedium ? parent.height - height + 2 : (parent.height - height) / 2
    }
    Label {
        visible: root.isSmall
        text: root.breathing.face.shortTitle
        role: Theme.subLine
        color: Theme.ink2
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        anchors.bottom: parent.bottom
        Accessible.ignored: true
    }
}
