import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit

// Where a link leads: its host, and what follows.
Item {
    id: root

    required property clipFace face

    Column {
        x: Theme.space3
        width: parent.width - 2 * Theme.space3
        spacing: Theme.space1

        Label {
            width: parent.width
            text: root.face.title
            role: Theme.rowTitle
            lineHeight: 18 * Theme.textScale
            wrapMode: Text.Wrap
            maximumLineCount: 2
            Accessible.ignored: true
        }
        Label {
            width: parent.width
            visible: root.face.detail !== ""
            text: root.face.detail
            role: Theme.small
            color: Theme.blue.text
            wrapMode: Text.WrapAnywhere
            maximumLineCount: 4
            Accessible.ignored: true
        }
    }
}
