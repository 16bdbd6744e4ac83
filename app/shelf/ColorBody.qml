import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit

// A colour, as it is written and as it looks.
Item {
    id: root

    required property clipFace face

    Rectangle {
        id: field

        x: Theme.space3
        width: parent.width - 2 * Theme.space3
        height: Scaled.px(64)
        radius: Theme.radiusButton
        color: root.face.swatch
        border.width: 1
        border.color: Theme.line
    }
    TipLabel {
        id: name

        x: Theme.space3
        y: field.height + Theme.space2
        width: field.width
        text: root.face.title
        role: Theme.rowTitle
        Accessible.ignored: true
    }
    TipLabel {
        x: Theme.space3
        y: name.y + name.height + 1
        width: field.width
        text: root.face.detail
        role: Theme.subLine
        color: Theme.ink2
        Accessible.ignored: true
    }
}
