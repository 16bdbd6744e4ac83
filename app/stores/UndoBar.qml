import QtQuick
import Ambrel.Kit

// At the bottom of a panel: what was removed, and the way back.
Item {
    id: root

    required property string removed

    signal undone

    anchors {
        left: parent.left
        right: parent.right
        leftMargin: Theme.space4
        rightMargin: Theme.space4
        bottomMargin: Theme.space2
    }
    height: link.height
    visible: removed !== ""

    TipLabel {
        anchors.verticalCenter: parent.verticalCenter
        width: link.x - Theme.space2
        text: root.removed
        role: Theme.small
        color: Theme.ink2
    }
    LinkButton {
        id: link

        anchors.right: parent.right
        text: qsTr("Undo")
        onClicked: root.undone()
    }
}
