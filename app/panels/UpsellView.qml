import QtQuick
import Ambrel.Kit

// What the licence would give, shown when something was asked for that it guards.
Popover {
    id: root

    signal purchaseAsked

    implicitWidth: Scaled.px(400)
    implicitHeight: Math.max(Scaled.px(336), header.height + words.height + buttons.height + 3 * Theme.space4)
    title: qsTr("Tilebay Pro")
    symbol: "star.fill"

    Column {
        id: words
        anchors {
            left: parent.left
            right: parent.right
            top: parent.top
            margins: Theme.space4
        }
        spacing: Theme.space2

        Label {
            width: parent.width
            text: qsTr("This is a part of Tilebay Pro. The licence also gives you:")
            color: Theme.ink2
            wrapMode: Text.WordWrap
        }
        Repeater {
            model: [
                {
                    symbol: "sparkles",
                    text: qsTr("AI agents and usage limits, live")
                },
                {
                    symbol: "face.smiling",
                    text: qsTr("Buddy, who speaks up when it matters")
                },
                {
                    symbol: "mappin.and.ellipse",
                    text: qsTr("Screen notes")
                },
                {
                    symbol: "translate",
                    text: qsTr("Quick translation")
                },
                {
                    symbol: "desktopcomputer",
                    text: qsTr("Profiles that follow your displays")
                }
            ]

            Row {
                required property var modelData
                spacing: Theme.space3

                Symbol {
                    name: parent.modelData.symbol
                    size: 18
                    color: Theme.blue.text
                    anchors.verticalCenter: parent.verticalCenter
                }
                Label {
                    width: words.width - x
                    text: parent.modelData.text
                    role: Theme.listName
                    wrapMode: Text.WordWrap
                    anchors.verticalCenter: parent.verticalCenter
                }
            }
        }
    }
    Row {
        id: buttons
        anchors {
            right: parent.right
            bottom: parent.bottom
            margins: Theme.space4
        }
        spacing: Theme.space2

        Button {
            kind: Button.Quiet
            text: qsTr("Not now")
            onClicked: root.closeRequested()
        }
        Button {
            focus: true
            kind: Button.Primary
            text: qsTr("Buy Tilebay Pro…")
            onClicked: root.purchaseAsked()
        }
    }
}
