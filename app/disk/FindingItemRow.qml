import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// One thing that a rule found. A click asks about it.
FindingRowGround {
    id: root

    readonly property bool needsCare: row.riskName !== ""

    implicitHeight: Math.max(44, words.height + Theme.space2)

    RowCheck {
        x: 78
        y: root.middle - height / 2
        row: root.row
    }
    Column {
        id: words

        anchors {
            left: parent.left
            leftMargin: 108
            right: pill.visible ? pill.left : amount.left
            rightMargin: Theme.space3
            verticalCenter: parent.verticalCenter
        }

        TipLabel {
            width: parent.width
            text: root.row.title
            role: Theme.body
            height: Theme.listName.line
            elide: Text.ElideMiddle
            Accessible.ignored: true
        }
        TipLabel {
            width: parent.width
            text: root.row.detail
            role: Theme.small
            color: Theme.ink2
            elide: Text.ElideMiddle
            Accessible.ignored: true
        }
        Label {
            width: parent.width
            visible: root.row.note !== ""
            text: root.row.note
            role: Theme.small
            color: root.row.hasStayed || root.needsCare ? Theme.orange.text : Theme.ink2
            wrapMode: Text.WordWrap
            Accessible.ignored: true
        }
    }
    Pill {
        id: pill

        anchors.left: parent.right
        anchors.leftMargin: -206
        anchors.verticalCenter: parent.verticalCenter
        visible: root.needsCare
        text: root.row.risk
        symbol: "eye"
        tone: Theme.orange
        Accessible.ignored: true
    }
    TipLabel {
        id: amount

        anchors.right: parent.right
        anchors.rightMargin: 54
        anchors.verticalCenter: parent.verticalCenter
        text: root.row.size
        Accessible.ignored: true
    }
    Symbol {
        anchors.right: parent.right
        anchors.rightMargin: Theme.space6
        anchors.verticalCenter: parent.verticalCenter
        visible: root.hovered
        name: "questionmark.circle"
        size: 18
        color: Theme.ink3
    }
}
