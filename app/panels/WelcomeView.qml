import QtQuick
import Ambrel.Kit

// What a new user sees first: what the bar is, three things to know, and a way to begin.
Popover {
    id: root

    signal customizeAsked
    // The user has finished it.
    signal finished

    onCloseRequested: finished()
    onCustomizeAsked: finished()

    implicitWidth: 480
    implicitHeight: 500
    hasHeader: false
    title: qsTr("Welcome to Tilebay")
    Accessible.name: title

    Column {
        anchors.fill: parent
        anchors.margins: Theme.space6 + 8
        spacing: Theme.space2

        Rectangle {
            width: 56
            height: 56
            radius: Theme.radiusPanel
            color: Theme.blue.soft

            Symbol {
                anchors.centerIn: parent
                name: "dock.rectangle"
                size: 32
                color: Theme.blue.text
            }
        }
        Item {
            width: 1
            height: Theme.space1
        }
        TipLabel {
            width: parent.width
            text: root.title
            role: Theme.headline
            Accessible.role: Accessible.Heading
        }
        Label {
            width: parent.width
            text: qsTr("A bar of live widgets on the edge of your screen: time, weather, your machine, and what your AI agents are doing.")
            color: Theme.ink2
            wrapMode: Text.WordWrap
        }
        Item {
            width: 1
            height: Theme.space2
        }
        WelcomeStep {
            width: parent.width
            symbol: "cursorarrow"
            title: qsTr("Push the pointer against the edge")
            detail: qsTr("The bar comes out, and goes when you leave it. It can also stay: see Settings.")
        }
        WelcomeStep {
            width: parent.width
            symbol: "square.grid.2x2"
            title: qsTr("Choose your tiles")
            detail: qsTr("Over a hundred widgets, in profiles for the laptop alone and for the desk.")
        }
        WelcomeStep {
            width: parent.width
            symbol: "hand.raised.fill"
            title: qsTr("Let it call you")
            detail: qsTr("When an agent needs you, the bar peeks out and says so.")
        }
    }
    Row {
        anchors {
            right: parent.right
            bottom: parent.bottom
            margins: Theme.space6
        }
        spacing: Theme.space2

        Button {
            size: 36
            kind: Button.Quiet
            text: qsTr("Choose tiles…")
            onClicked: root.customizeAsked()
        }
        Button {
            size: 36
            focus: true
            kind: Button.Primary
            text: qsTr("Start")
            onClicked: root.closeRequested()
        }
    }
}
