import QtQuick
import Ambrel.Kit

// A widget of the gallery without a preview: symbol, title and description.
TileFrame {
    id: root

    property string widget
    property string title
    property string description

    name: title
    hasHeader: false

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
        }
    }
    Symbol {
        visible: root.span !== TileFrame.Small
        name: root.symbol
        size: 14
        color: Theme.ink2
    }
    // A title that is too long for a line takes one from the description, which the tip has whole.
    Column {
        visible: root.span !== TileFrame.Small
        width: parent.width
        spacing: 3

        Label {
            id: heading
            x: 18
            width: parent.width - x
            text: root.title
            role: Theme.caption
            color: Theme.ink2
            wrapMode: Text.Wrap
            maximumLineCount: 2
        }
        Label {
            width: parent.width
            text: root.description
            role: Theme.subLine
            color: Theme.ink2
            wrapMode: Text.Wrap
            maximumLineCount: 3 - heading.lineCount
        }
    }
}
