import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// A minute of slow breathing: the disc grows while you breathe in. A click starts and stops it.
TileFrame {
    id: root

    required property BreathingExercise breathing

    name: qsTr("Breathing")
    symbol: "lungs"
    span: TileFrame.Large
    value: breathing.title
    valueRole: Theme.rowTitle
    subLine: breathing.detail
    reserved: span === TileFrame.Small ? 0 : 48
    tip: breathing.isRunning ? qsTr("Click to stop") : qsTr("Click to breathe with the disc")
    onClicked: breathing.toggle()

    Item {
        visible: root.span !== TileFrame.Small
        width: 44
        height: 44
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter

        Rectangle {
            anchors.centerIn: parent
            width: 44
            height: 44
            radius: 22
            color: "transparent"
            border.width: 2
            border.color: Theme.track
        }
        Rectangle {
            id: disc

            // Under reduced motion the words alone say what to do.
            property real size: 14 + 28 * (Theme.reducedMotion ? 0.5 : root.breathing.target)

            anchors.centerIn: parent
            width: size
            height: size
            radius: size / 2
            color: Theme.teal.mark

            Behavior on size {
                enabled: !Theme.reducedMotion

                NumberAnimation {
                    duration: root.breathing.stepMilliseconds
                    easing.type: Easing.InOutSine
                }
            }
        }
    }
}
