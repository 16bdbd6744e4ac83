import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit
import Ambrel.Shelf

// The header of a card: its kind, whether it is on the clipboard now, and its pin.
Item {
    id: root

    required property clipFace face
    property string symbol
    // The card is hovered: shows the pin button.
    property bool isActive: false

    signal pinToggled

    height: Scaled.px(36)

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
        text: root.face.kindText
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
            visible: root.face.isCurrent && !root.isActive
            name: "checkmark.circle.fill"
            size: 14
            color: Theme.green.mark
            anchors.verticalCenter: parent.verticalCenter
        }
        IconButton {
            visible: root.isActive || root.face.isPinned && root.face.pinNumber === 0
            size: 20
            symbolSize: 16
            symbol: root.face.isPinned ? "star.fill" : "star"
            label: root.face.isPinned ? qsTr("Unpin") : qsTr("Pin")
            ink: root.face.isPinned ? Theme.accent : Theme.ink2
            activeFocusOnTab: false
            anchors.verticalCenter: parent.verticalCenter
            onClicked: root.pinToggled()
        }
        Rectangle {
            visible: root.face.pinNumber > 0
            width: Math.max(18, number.implicitWidth + 8)
            height: 18
            radius: Theme.radiusHighlight
            color: Theme.accent
            anchors.verticalCenter: parent.verticalCenter

            Label {
                id: number

                anchors.centerIn: parent
                text: root.face.pinNumber
                role: Theme.captionStrong
                color: Theme.onAccent
                Accessible.ignored: true
            }
        }
    }
}
