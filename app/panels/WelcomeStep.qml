import QtQuick
import Ambrel.Kit

// One thing to know, with its symbol.
Item {
    id: root

    property string symbol
    property color symbolColor: Theme.ink2
    property string title
    property string detail

    implicitHeight: Math.max(52, words.height + Theme.space2)

    Rectangle {
        id: box
        width: Scaled.px(36)
        height: Scaled.px(36)
        radius: Theme.radiusButton
        color: Theme.card
        anchors.verticalCenter: parent.verticalCenter

        Symbol {
            anchors.centerIn: parent
            name: root.symbol
            size: 20
            color: root.symbolColor
        }
    }
    Column {
        id: words
        anchors {
            left: box.right
            leftMargin: Theme.space3
            right: parent.right
            verticalCenter: parent.verticalCenter
        }

        TipLabel {
            width: parent.width
            text: root.title
            role: Theme.rowTitle
        }
        Label {
            width: parent.width
            text: root.detail
            role: Theme.small
            color: Theme.ink2
            wrapMode: Text.WordWrap
        }
    }
}
