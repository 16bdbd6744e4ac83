import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// What is chosen, and the button that leads to the last look at it.
Item {
    id: root

    required property DiskDoctor doctor
    readonly property FindingListModel findings: doctor.findings
    readonly property bool isDone: doctor.face.isDone
    readonly property bool hasChosen: findings.choice.hasChosen

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.over(Theme.line, Theme.panel)
    }
    Column {
        anchors {
            left: parent.left
            leftMargin: Theme.space6
            right: buttons.left
            rightMargin: Theme.space4
            verticalCenter: parent.verticalCenter
        }

        TipLabel {
            width: parent.width
            text: root.findings.choice.title
            role: Theme.rowTitle
        }
        TipLabel {
            width: parent.width
            text: root.isDone ? qsTr("You can take everything back until the Trash is emptied.") : qsTr("Reading only. Nothing is changed while it scans.")
            role: Theme.small
            color: Theme.ink2
        }
    }
    Row {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: Theme.space6
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space2

        Button {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.isDone && root.hasChosen
            kind: Button.Quiet
            size: 36
            text: qsTr("Choose none")
            onClicked: root.findings.selectNone()
        }
        Button {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.isDone && !root.hasChosen && root.findings.choice.hasSafeItems
            kind: Button.Quiet
            size: 36
            text: qsTr("Choose what is safe")
            onClicked: root.findings.selectSafe()
        }
        Button {
            anchors.verticalCenter: parent.verticalCenter
            kind: Button.Primary
            size: 36
            enabled: root.isDone && root.hasChosen
            text: root.findings.choice.moveTitle
            symbol: "trash.fill"
            onClicked: root.doctor.reviewSelection()
        }
    }
}
