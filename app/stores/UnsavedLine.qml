import QtQuick
import Ambrel.Kit

// At the bottom of a panel: that its document could not be written, and why.
Label {
    required property string problem

    anchors {
        left: parent.left
        right: parent.right
        bottom: parent.bottom
        leftMargin: Theme.space4
        rightMargin: Theme.space4
        bottomMargin: Theme.space2
    }
    visible: problem !== ""
    text: qsTr("Not saved yet: %1").arg(problem)
    role: Theme.small
    color: Theme.red.text
    wrapMode: Text.WordWrap
}
