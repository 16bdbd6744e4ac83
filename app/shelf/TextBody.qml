import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit

// The beginning of a text.
Item {
    id: root

    required property clipFace face
    property alias color: label.color

    clip: label.implicitHeight > height

    Label {
        id: label

        text: root.face.title
        x: Theme.space3
        width: parent.width - 2 * Theme.space3
        height: parent.height
        role: Theme.small
        lineHeight: 18 * Theme.textScale
        wrapMode: Text.Wrap
        elide: Text.ElideRight
        maximumLineCount: Math.max(1, Math.floor(parent.height / lineHeight))
        Accessible.ignored: true
    }
}
