import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// One item of the confirmation or of the report.
Item {
    id: root

    required property cleanupRow row

    implicitHeight: Math.max(44, words.height + Theme.space2)
    Accessible.role: Accessible.ListItem
    Accessible.name: row.label

    Symbol {
        id: icon

        x: Theme.space6
        anchors.verticalCenter: parent.verticalCenter
        visible: root.row.hasMoved || root.row.hasStayed
        name: root.row.hasStayed ? "exclamationmark.triangle.fill" : "checkmark.circle.fill"
        size: 18
        color: root.row.hasStayed ? Theme.orange.text : Theme.green.text
    }
    RowWords {
        id: words

        anchors {
            left: parent.left
            leftMargin: icon.visible ? 54 : Theme.space6
            right: amount.left
            rightMargin: Theme.space3
            verticalCenter: parent.verticalCenter
        }
        title: root.row.title
        detail: root.row.detail
        note: root.row.note
        noteColor: Theme.orange.text
    }
    TipLabel {
        id: amount

        anchors.right: parent.right
        anchors.rightMargin: Theme.space6
        anchors.verticalCenter: parent.verticalCenter
        text: root.row.size
        role: Theme.listName
        color: root.row.hasStayed ? Theme.ink2 : Theme.ink
        Accessible.ignored: true
    }
}
