import QtQuick
import Ambrel.Window
import Ambrel.Kit

// Symbol, title and the three buttons of a window. It is dragged to move the window, and clicked twice to fill the
// screen with it.
Item {
    id: root

    property string title
    property string symbol
    property bool isMaximized: false

    signal moveAsked
    signal minimizeAsked
    signal maximizeAsked
    signal closeAsked

    implicitHeight: 44

    DragHandler {
        target: null
        onActiveChanged: if (active)
            root.moveAsked()
    }
    TapHandler {
        gesturePolicy: TapHandler.DragThreshold
        onDoubleTapped: root.maximizeAsked()
    }

    Symbol {
        id: icon

        x: 16
        anchors.verticalCenter: parent.verticalCenter
        name: root.symbol
        size: 18
        color: Theme.ink2
    }
    TipLabel {
        anchors {
            left: icon.right
            leftMargin: Theme.space2
            right: buttons.left
            rightMargin: Theme.space3
            verticalCenter: parent.verticalCenter
        }
        text: root.title
        role: Theme.rowTitle
        Accessible.role: Accessible.Heading
    }
    Row {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space2

        IconButton {
            label: qsTr("Minimise")
            symbol: "minus"
            onClicked: root.minimizeAsked()
        }
        IconButton {
            label: root.isMaximized ? qsTr("Restore") : qsTr("Maximise")
            symbol: "square"
            symbolSize: 16
            onClicked: root.maximizeAsked()
        }
        IconButton {
            label: qsTr("Close")
            symbol: "xmark"
            onClicked: root.closeAsked()
        }
    }
    Rectangle {
        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
            leftMargin: 1
            rightMargin: 1
        }
        height: 1
        color: Theme.over(Theme.line, Theme.panel)
    }
}
