import QtQuick
import Ambrel.Kit

// A device or a drive in the list of a panel: its symbol, its name over a detail, and at the right what its children show.
Item {
    id: root

    required property string title
    required property string detail
    required property string symbol
    // Read out besides the title and the detail.
    property string figure
    property color detailColor: Theme.ink2
    // A meter below the detail; not a number for none.
    property real used: NaN
    default property alias trailing: slot.data

    Accessible.role: Accessible.ListItem
    Accessible.name: title + ", " + detail + (figure === "" ? "" : ", " + figure)

    Symbol {
        id: icon
        x: Theme.space2
        y: Scaled.px(12)
        name: root.symbol
        size: 20
        color: Theme.ink2
    }
    Column {
        anchors {
            left: icon.right
            leftMargin: Theme.space3
            right: slot.left
            rightMargin: Theme.space3
            verticalCenter: parent.verticalCenter
        }
        spacing: isNaN(root.used) ? 0 : 2

        TipLabel {
            width: parent.width
            text: root.title
            role: Theme.rowTitle
            Accessible.ignored: true
        }
        TipLabel {
            width: parent.width
            text: root.detail
            role: Theme.small
            color: root.detailColor
            Accessible.ignored: true
        }
        MeterBar {
            visible: !isNaN(root.used)
            width: parent.width
            height: 4
            value: root.used
            color: Theme.gaugeTone(root.used, Theme.teal).mark
            trackColor: Theme.track
        }
    }
    Row {
        id: slot
        height: parent.height
        anchors.right: parent.right
        anchors.rightMargin: Theme.space2
    }
}
