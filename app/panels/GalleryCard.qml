import QtQuick
import Ambrel.Kit

// Stands in the gallery for a widget whose tile is not shown there: symbol, title and what it is for.
TileFrame {
    id: root

    property string widget
    property string title
    property string description

    name: title
    hasHeader: span !== TileFrame.Small

    Column {
        visible: root.span === TileFrame.Small
        width: parent.width
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        Symbol {
            name: root.symbol
            size: 20
            color: Theme.ink2
            anchors.horizontalCenter: parent.horizontalCenter
        }
        Label {
            width: parent.width
            text: root.title
            role: Theme.subLine
            color: Theme.ink2
            wrapMode: Text.Wrap
            maximumLineCount: 2
            horizontalAlignment: Text.AlignHCenter
            hasTip: false
        }
    }
    Label {
        visible: root.span !== TileFrame.Small
        y: root.valueTop + 3
        width: parent.width
        text: root.description
        role: Theme.subLine
        color: Theme.ink2
        wrapMode: Text.Wrap
        maximumLineCount: 2
        hasTip: false
    }
}
