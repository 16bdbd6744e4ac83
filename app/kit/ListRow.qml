import QtQuick
import Ambrel.Kit

// A row of a list: a symbol in its box, a title over a detail, and at the right what its children show.
Pressable {
    id: root

    property string symbol
    property Tone symbolTone: null
    property string title
    property string detail
    property bool isCurrent: false
    property bool isStrong: true
    default property alias trailing: slot.data

    label: detail === "" ? title : title + ", " + detail
    tip: name.truncated || note.truncated ? label : ""
    accessibleRole: Accessible.ListItem
    implicitWidth: 360
    implicitHeight: Math.max(44, words.height + Theme.space3)

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusButton
        color: root.isCurrent ? Theme.blue.soft : root.down ? Theme.tilePressed : Theme.card
        visible: root.isCurrent || root.hovered || root.down
    }
    Rectangle {
        id: box
        x: Theme.space2
        width: root.symbol === "" ? 0 : 32
        height: 32
        visible: root.symbol !== ""
        anchors.verticalCenter: parent.verticalCenter
        radius: Theme.radiusButton
        color: root.symbolTone ? root.symbolTone.soft : Theme.card
        border.width: root.symbolTone ? 0 : 1
        border.color: Theme.over(Theme.line, Theme.card)

        Symbol {
            anchors.centerIn: parent
            name: root.symbol
            size: 18
            color: root.symbolTone ? root.symbolTone.text : Theme.ink2
        }
    }
    Column {
        id: words
        anchors {
            left: box.right
            leftMargin: root.symbol === "" ? 0 : Theme.space3
            right: slot.left
            rightMargin: Theme.space2
            verticalCenter: parent.verticalCenter
        }

        Label {
            id: name
            width: parent.width
            text: root.title
            role: root.isStrong ? Theme.rowTitle : Theme.listName
            Accessible.ignored: true
        }
        Label {
            id: note
            width: parent.width
            visible: root.detail !== ""
            text: root.detail
            role: Theme.small
            color: Theme.ink2
            Accessible.ignored: true
        }
    }
    Row {
        id: slot
        spacing: Theme.space2
        height: parent.height
        anchors.right: parent.right
        anchors.rightMargin: Theme.space2
    }
    FocusRing {
        gap: 0
    }
}
