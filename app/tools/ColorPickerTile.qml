import QtQuick
import Ambrel.Kit
import Ambrel.Tools

// A click picks a color from the screen and copies it.
TileFrame {
    id: root

    required property ColorPickerModel colorPicker

    value: !colorPicker.face.hasColor ? qsTr("Pick") : isSmall ? " " : colorPicker.face.text
    label: colorPicker.face.hasColor ? title + ", " + colorPicker.face.text : title
    tip: colorPicker.face.hasColor ? label : description
    onActivated: colorPicker.pick()

    Rectangle {
        visible: root.colorPicker.face.hasColor
        anchors.centerIn: root.isSmall ? parent : undefined
        x: parent.width - width
        width: Theme.caption.line
        height: width
        radius: Theme.radiusSmall
        color: root.colorPicker.face.color
        border.width: 1
        border.color: Theme.over(Theme.lineStrong, Theme.tile)
    }
}
