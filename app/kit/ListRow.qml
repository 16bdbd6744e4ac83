import QtQuick
import Ambrel.Kit

// A row of a list: a symbol, picture or letter in its box, a title over a detail, and at the right what its children
// show.
Pressable {
    id: root

    property string symbol
    property Tone symbolTone: null
    property alias picture: box.picture
    property alias letter: box.letter
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
        visible: root.isCurrent || root.isPressable && (root.hovered || root.down)
    }
    MarkBox {
        id: box
        x: Theme.space2
        width: isEmpty ? 0 : implicitWidth
        visible: !isEmpty
        anchors.verticalCenter: parent.verticalCenter
        symbol: root.symbol
        tone: root.symbolTone
    }
    Column {
        id: words
        anchors {
            left: box.right
            leftMargin: box.isEmpty ? 0 : Theme.space3
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
