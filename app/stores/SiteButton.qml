import QtQuick
import Ambrel.Kit
import Ambrel.Stores

// A site that opens by a click: its icon, or the letter that stands for it.
Pressable {
    id: root

    required property entryRow row

    label: qsTr("Open %1").arg(row.name)
    tip: row.name
    implicitWidth: 28
    implicitHeight: 28
    scale: down ? Theme.pressScale : 1

    MarkBox {
        anchors.fill: parent
        color: root.hovered ? Theme.cardHover : Theme.card
        picture: root.row.picture
        letter: root.row.letter
    }
    FocusRing {
        gap: 0
    }
}
