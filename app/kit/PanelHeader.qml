import QtQuick
import Ambrel.Kit

// The head of every panel: symbol, title, what the panel puts beside them, and the close button.
Item {
    id: root

    property string title
    property string symbol
    property string fact
    property bool isClosable: true
    // From edge to edge where columns follow; otherwise the rule keeps the panel's padding.
    property bool hasFullRule: false
    property real titleInset: 0
    default property alias trailing: extras.data

    signal closeRequested

    implicitHeight: 48
    implicitWidth: titleRow.x + titleRow.implicitWidth + extras.width + Theme.space1 + close.width + 2 * Theme.space4

    Row {
        id: titleRow
        x: Theme.space4 + root.titleInset
        height: root.height
        spacing: 10

        Symbol {
            id: mark

            name: root.symbol
            visible: root.symbol !== ""
            size: 20
            color: Theme.ink
            anchors.verticalCenter: parent.verticalCenter
        }
        TipLabel {
            text: root.title
            role: Theme.panelTitle
            width: Math.min(Math.ceil(implicitWidth), Math.max(0, extras.x - titleRow.x - (mark.visible ? mark.width + titleRow.spacing : 0) - Theme.space3))
            anchors.verticalCenter: parent.verticalCenter
            Accessible.role: Accessible.Heading
        }
    }

    Row {
        id: extras
        anchors.right: root.isClosable ? close.left : parent.right
        anchors.rightMargin: root.isClosable ? Theme.space1 : Theme.space4
        height: root.height
        spacing: Theme.space2

        Label {
            visible: text !== ""
            anchors.verticalCenter: parent.verticalCenter
            text: root.fact
            role: Theme.small
            color: Theme.ink2
        }
    }

    IconButton {
        id: close
        visible: root.isClosable
        anchors.right: parent.right
        anchors.rightMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        label: qsTr("Close")
        tipKeys: qsTr("Esc")
        symbol: "xmark"
        onClicked: root.closeRequested()
    }

    Rectangle {
        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
            leftMargin: root.hasFullRule ? 1 : Theme.space4
            rightMargin: anchors.leftMargin
        }
        height: 1
        color: Theme.over(Theme.line, Theme.panel)
    }
}
