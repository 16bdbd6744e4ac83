import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// What is chosen, and the button that opens the confirmation.
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
    RowWords {
        anchors {
            left: parent.left
            leftMargin: Theme.space6
            right: buttons.left
            rightMargin: Theme.space4
            verticalCenter: parent.verticalCenter
        }
        title: root.findings.choice.title
        titleRole: Theme.rowTitle
        detail: root.isDone ? qsTr("You can take everything back until the Trash is emptied.") : qsTr("Reading only. Nothing is changed while it scans.")
        elide: Text.ElideRight
        Accessible.role: Accessible.StaticText
        Accessible.name: title + ", " + detail
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
