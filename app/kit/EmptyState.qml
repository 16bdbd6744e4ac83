import QtQuick
import Ambrel.Kit

// Shown for an empty list: a symbol, what is missing, and one sentence on when it will appear.
Item {
    id: root

    property string symbol
    property string title
    property string sentence

    implicitWidth: 360
    implicitHeight: column.height
    Accessible.role: Accessible.StaticText
    Accessible.name: title + ". " + sentence

    Column {
        id: column
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.space4
        spacing: Theme.space1

        Rectangle {
            width: Scaled.px(56)
            height: width
            radius: width / 2
            color: Theme.card
            anchors.horizontalCenter: parent.horizontalCenter

            Symbol {
                anchors.centerIn: parent
                name: root.symbol
                size: 28
                color: Theme.ink3
            }
        }
        Item {
            width: 1
            height: Theme.space1
        }
        TipLabel {
            width: parent.width
            text: root.title
            role: Theme.panelTitle
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: true
        }
        Label {
            width: parent.width
            text: root.sentence
            role: Theme.body
            color: Theme.ink2
            wrapMode: Text.WordWrap
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: true
        }
    }
}
