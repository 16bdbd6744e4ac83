import QtQuick
import Ambrel.Disk
import Ambrel.Window
import Ambrel.Kit

// The window of Disk Doctor: what to scan, what was found, and the last look before something moves.
WindowFrame {
    id: root

    required property DiskDoctor doctor
    readonly property bool isReviewing: doctor.review.face.isOpen
    readonly property bool hasTree: doctor.face.isScanning || doctor.face.isDone

    title: qsTr("Disk Doctor")
    symbol: "chart.pie.fill"
    Keys.onEscapePressed: {
        if (doctor.question.face.isOpen)
            doctor.question.close();
        else if (!doctor.face.isScanning)
            window.closeAsked();
    }

    StartPane {
        anchors.fill: parent
        visible: !root.hasTree
        doctor: root.doctor
    }

    Item {
        anchors.fill: parent
        visible: root.hasTree
        // The keyboard stays in the sheet above.
        enabled: !root.isReviewing

        DiskHeader {
            id: header

            width: parent.width
            height: 81
            doctor: root.doctor
        }
        ExplorerPane {
            id: explorer

            anchors {
                left: parent.left
                top: header.bottom
                bottom: footer.top
            }
            width: Math.round(Math.min(640, Math.max(399, root.width * 0.36)))
            doctor: root.doctor
        }
        Rectangle {
            anchors {
                left: explorer.right
                top: header.bottom
                bottom: footer.top
            }
            width: 1
            color: Theme.over(Theme.line, Theme.panel)
        }
        FindingsPane {
            id: findings

            anchors {
                left: explorer.right
                leftMargin: 1
                right: parent.right
                top: header.bottom
                bottom: footer.top
            }
            doctor: root.doctor
            covered: card.visible ? card.height + Theme.space3 : 0
        }
        AnswerCard {
            id: card

            anchors {
                left: findings.left
                right: findings.right
                bottom: findings.bottom
                margins: Theme.space3
            }
            question: root.doctor.question
            onShowAsked: id => root.doctor.showInFolder(id)
        }
        DiskFooter {
            id: footer

            width: parent.width
            height: 64
            anchors.bottom: parent.bottom
            doctor: root.doctor
        }
    }

    ReviewSheet {
        anchors.fill: parent
        visible: root.isReviewing
        doctor: root.doctor
        clearance: footer.height + Theme.space3
    }
}
