import QtQuick
import Ambrel.Kit
import Ambrel.Shelf

// The upper line of a card: what kind of clip it is, whether it is on the clipboard now, and its pin.
Item {
    id: root

    property string symbol
    property string text
    property int pinNumber: 0
    property bool isPinned: false
    property bool isCurrent: false
    // The pointer is on the card: the pin can be set.
    property bool isActive: false

    signal pinToggled

    height: Math.round(36 * Theme.textScale)

    Symbol {
        id: icon

        x: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        name: root.symbol
        size: 16
        color: Theme.ink2
    }
    Label {
        id: kind

        anchors {
            left: icon.right
            leftMargin: Theme.space1
            verticalCenter: parent.verticalCenter
        }
        width: Math.min(implicitWidth, marks.x - x - Theme.space1)
        text: root.text
        role: Theme.caption
        color: Theme.ink2
        Accessible.ignored: true
    }
    Row {
        id: marks

        anchors {
            right: parent.right
            rightMargin: 10
            verticalCenter: parent.verticalCenter
        }
        spacing: Theme.space1

        Symbol {
            visible: root.isCurrent && !root.isActive
            name: "checkmark.circle.fill"
            size: 14
            color: Theme.green.mark
            anchors.verticalCenter: parent.verticalCenter
        }
        IconButton {
            visible: root.isActive || root.isPinned && root.pinNumber === 0
            size: 20
            symbolSize: 16
            symbol: root.isPinned ? "star.fill" : "star"
            label: root.isPinned ? qsTr("Unpin") : qsTr("Pin")
            ink: root.isPinned ? Theme.accent : Theme.ink2
            activeFocusOnTab: false
            anchors.verticalCenter: parent.verticalCenter
            onClicked: root.pinToggled()
        }
        Rectangle {
            visible: root.pinNumber > 0
            width: Math.max(18, number.implicitWidth + 8)
            height: 18
            radius: Theme.radiusHighlight
            color: Theme.accent
            anchors.verticalCenter: parent.verticalCenter

            Label {
                id: number

                anchors.centerIn: parent
                text: root.pinNumber
                role: Theme.captionStrong
                color: Theme.onAccent
                Accessible.ignored: true
            }
        }
    }
}
