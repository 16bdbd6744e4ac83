import QtQuick
import Ambrel.Kit

// One mood as a face in its colour; an empty ring without one.
Item {
    id: root

    required property int mood
    property real size: 16
    readonly property var tones: [Theme.red, Theme.orange, Theme.yellow, Theme.teal, Theme.green]

    width: Scaled.px(size)
    height: width

    Rectangle {
        visible: root.mood === 0
        anchors.fill: parent
        anchors.margins: root.width / 12
        radius: width / 2
        color: "transparent"
        border.width: 1.5
        border.color: Theme.track
    }
    Symbol {
        visible: root.mood > 0
        name: root.mood > 0 ? "mood." + root.mood : ""
        size: root.size
        color: root.mood > 0 ? root.tones[root.mood - 1].mark : Theme.track
    }
}
