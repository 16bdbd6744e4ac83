import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// One thing on the list that moves, or what became of it.
Item {
    id: root

    required property string title
    required property string detail
    required property string size
    required property bool hasMoved
    required property bool hasStayed
    required property string note

    implicitHeight: Math.max(44, words.height + Theme.space2)
    Accessible.role: Accessible.ListItem
    Accessible.name: title + (note === "" ? "" : ", " + note) + (detail === "" ? "" : ", " + detail) + ", " + size

    Symbol {
        id: icon

        x: Theme.space6
        anchors.verticalCenter: parent.verticalCenter
        visible: root.hasMoved || root.hasStayed
        name: root.hasStayed ? "exclamationmark.triangle.fill" : "checkmark.circle.fill"
        size: 18
        color: root.hasStayed ? Theme.orange.text : Theme.green.text
    }
    Column {
        id: words

        anchors {
            left: parent.left
            leftMargin: icon.visible ? 54 : Theme.space6
            right: amount.left
            rightMargin: Theme.space3
            verticalCenter: parent.verticalCenter
        }

        TipLabel {
            width: parent.width
            text: root.title
            role: Theme.listName
            elide: Text.ElideMiddle
            Accessible.ignored: true
        }
        TipLabel {
            width: parent.width
            text: root.detail
            role: Theme.small
            color: Theme.ink2
            elide: Text.ElideMiddle
            Accessible.ignored: true
        }
        Label {
            width: parent.width
            visible: root.note !== ""
            text: root.note
            role: Theme.small
            color: Theme.orange.text
            wrapMode: Text.WordWrap
            Accessible.ignored: true
        }
    }
    TipLabel {
        id: amount

        anchors.right: parent.right
        anchors.rightMargin: Theme.space6
        anchors.verticalCenter: parent.verticalCenter
        text: root.size
        role: Theme.listName
        color: root.hasStayed ? Theme.ink2 : Theme.ink
        Accessible.ignored: true
    }
}
