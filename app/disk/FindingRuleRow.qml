import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// One rule and what it found, with its risk.
FindingRowGround {
    id: root

    readonly property Tone tone: row.riskName === "safe" ? Theme.green : row.riskName === "review" ? Theme.orange : Theme.red

    implicitHeight: 48

    RowCheck {
        x: 48
        y: root.middle - height / 2
        row: root.row
    }
    Symbol {
        id: icon

        x: 78
        anchors.verticalCenter: parent.verticalCenter
        name: root.row.symbol
        size: 18
        color: Theme.ink2
    }
    Column {
        anchors {
            left: icon.right
            leftMargin: Theme.space3
            right: pill.left
            rightMargin: Theme.space3
            verticalCenter: parent.verticalCenter
        }

        TipLabel {
            width: parent.width
            text: root.row.title
            role: Theme.listName
            Accessible.ignored: true
        }
        TipLabel {
            width: parent.width
            text: root.row.detail
            role: Theme.small
            color: Theme.ink2
            Accessible.ignored: true
        }
    }
    Pill {
        id: pill

        anchors.left: parent.right
        anchors.leftMargin: -206
        anchors.verticalCenter: parent.verticalCenter
        visible: root.row.isSelectable
        text: root.row.risk
        symbol: root.row.riskName === "safe" ? "checkmark.circle.fill" : root.row.riskName === "review" ? "eye" : "exclamationmark.triangle.fill"
        tone: root.tone
        Accessible.ignored: true
    }
    TipLabel {
        anchors.right: parent.right
        anchors.rightMargin: 54
        anchors.verticalCenter: parent.verticalCenter
        text: root.row.size
        role: Theme.listName
        Accessible.ignored: true
    }
    Symbol {
        anchors.right: parent.right
        anchors.rightMargin: Theme.space6
        anchors.verticalCenter: parent.verticalCenter
        name: root.row.isOpen ? "chevron.up" : "chevron.down"
        size: 18
        color: Theme.ink3
    }
}
