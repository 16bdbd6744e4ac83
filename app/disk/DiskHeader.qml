import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// The progress of a scan, or its result.
Item {
    id: root

    required property DiskDoctor doctor
    readonly property bool isScanning: doctor.face.isScanning

    ScanProgress {
        anchors {
            left: parent.left
            leftMargin: Theme.space6
            right: buttons.left
            rightMargin: Theme.space4
            verticalCenter: parent.verticalCenter
        }
        visible: root.isScanning
        progress: root.doctor.progress
        hasShare: !root.doctor.face.isAnalyzing || root.doctor.progress.figure !== ""
    }

    Column {
        anchors {
            left: parent.left
            leftMargin: Theme.space6
            right: buttons.left
            rightMargin: Theme.space6
            verticalCenter: parent.verticalCenter
        }
        visible: !root.isScanning

        TipLabel {
            width: parent.width
            text: root.doctor.face.headline
            role: Theme.headline
            Accessible.role: Accessible.Heading
        }
        TipLabel {
            width: parent.width
            text: root.doctor.face.summary
            color: Theme.ink2
            wrapMode: Text.WordWrap
            maximumLineCount: 2
        }
    }

    Row {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: Theme.space6
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space2

        Button {
            visible: root.isScanning
            text: qsTr("Stop")
            symbol: "stop.fill"
            onClicked: root.doctor.stop()
        }
        IconButton {
            visible: !root.isScanning
            anchors.verticalCenter: parent.verticalCenter
            size: 32
            label: qsTr("Choose a folder…")
            symbol: "folder"
            onClicked: root.doctor.folderAsked()
        }
        Button {
            visible: !root.isScanning
            text: qsTr("Scan again")
            symbol: "arrow.clockwise"
            onClicked: root.doctor.scanAgain()
        }
    }

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.over(Theme.line, Theme.panel)
    }
}
