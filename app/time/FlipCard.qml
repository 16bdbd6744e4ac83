import QtQuick
import Ambrel.Kit

// One card of the flip clock: a number across the fold, and a note in its corner.
Rectangle {
    id: root

    required property string text
    property string note
    property bool isSmall: false

    width: isSmall ? 27 : 42
    height: isSmall ? 34 : 48
    radius: Theme.radiusSmall
    color: Theme.greySoft

    Label {
        anchors.centerIn: parent
        text: root.text
        role: root.isSmall ? Theme.value : Theme.headline
        Accessible.ignored: true
    }
    Rectangle {
        y: Math.round(parent.height / 2)
        width: parent.width
        height: 1
        color: Theme.tile
    }
    Label {
        x: 4
        y: parent.height - height
        text: root.note
        role: Theme.subLine
        color: Theme.ink2
        Accessible.ignored: true
    }
}
