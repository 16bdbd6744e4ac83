import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// A disc that grows while you breathe in, in the ring that it fills.
Item {
    id: root

    required property BreathingExercise breathing
    property real size: 44

    width: size
    height: size

    Rectangle {
        anchors.fill: parent
        radius: width / 2
        color: "transparent"
        border.width: 2
        border.color: Theme.track
    }
    Rectangle {
        id: disc

        // Under reduced motion the words alone say what to do.
        property real share: 0.32 + 0.63 * (Theme.reducedMotion ? 0.5 : root.breathing.face.target)

        anchors.centerIn: parent
        width: root.size * share
        height: width
        radius: width / 2
        color: Theme.teal.mark

        Behavior on share {
            enabled: !Theme.reducedMotion

            NumberAnimation {
                duration: root.breathing.face.stepMilliseconds
                easing.type: Easing.InOutSine
            }
        }
    }
}
