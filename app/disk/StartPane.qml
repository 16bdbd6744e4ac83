import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// The start page, and the page for a home that cannot be read.
Item {
    id: root

    required property DiskDoctor doctor
    readonly property bool isGuarded: doctor.face.isGuarded

    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.space6, 480)
        spacing: Theme.space5

        EmptyState {
            width: parent.width
            symbol: root.isGuarded ? "lock" : "chart.pie.fill"
            title: root.isGuarded ? qsTr("Your home cannot be read") : qsTr("What takes the space?")
            sentence: root.isGuarded ? qsTr("Something on this system keeps Tilebay from reading your home folder. Allow it, then look again.") : qsTr("Disk Doctor reads a folder and finds what can go to the Trash. Nothing moves before you have seen the list.")
        }
        Pill {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: text !== ""
            text: root.doctor.face.message
            symbol: "info.circle"
            tone: Theme.orange
        }
        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: Theme.space2

            Button {
                visible: !root.isGuarded
                size: 36
                text: qsTr("Choose a folder…")
                symbol: "folder"
                onClicked: root.doctor.folderAsked()
            }
            Button {
                visible: !root.isGuarded
                focus: visible
                kind: Button.Primary
                size: 36
                text: qsTr("Scan Home")
                symbol: "magnifyingglass"
                onClicked: root.doctor.scanHome()
            }
            Button {
                visible: root.isGuarded
                size: 36
                text: qsTr("Scan anyway")
                onClicked: root.doctor.skipAccess()
            }
            Button {
                visible: root.isGuarded
                focus: visible
                kind: Button.Primary
                size: 36
                text: qsTr("Look again")
                symbol: "arrow.clockwise"
                onClicked: root.doctor.retryAccess()
            }
        }
    }
}
