import QtQuick
import Ambrel.Kit
import Ambrel.Time

// A place's day: when they are awake, and when at work.
Rectangle {
    id: root

    required property var hours

    implicitHeight: 6
    radius: height / 2
    color: "transparent"

    Repeater {
        model: root.hours

        Rectangle {
            required property hoursSpan modelData

            x: modelData.from * root.width
            width: (modelData.to - modelData.from) * root.width
            height: root.height
            radius: height / 2
            color: modelData.isWorking ? Theme.green.mark : Theme.track
        }
    }
}
