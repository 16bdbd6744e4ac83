import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// The reason of a rule, and the language model's explanation.
FindingRowGround {
    id: root

    canPress: false
    implicitHeight: words.height + Theme.space3

    Column {
        id: words

        x: root.wordsX
        width: root.width - x - root.amountInset
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space1

        Label {
            width: parent.width
            text: root.row.title
            role: Theme.small
            color: Theme.ink2
            wrapMode: Text.WordWrap
            Accessible.ignored: true
        }
        Label {
            width: parent.width
            visible: root.row.detail !== ""
            text: root.row.detail
            role: Theme.small
            wrapMode: Text.WordWrap
            Accessible.ignored: true
        }
    }
}
