import QtQuick
import Ambrel.Disk
import Ambrel.Window
import Ambrel.Kit

// The window of Disk Doctor: start page, results, and the confirmation sheet.
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
        // Keeps the keyboard focus in the sheet.
        enabled: !root.isReviewing

        DiskHeader {
            id: header

            width: parent.width
            height: Scaled.px(81)
            doctor: root.doctor
        }
        Item {
            id: body

            anchors {
                left: parent.left
                right: parent.right
                top: header.bottom
                bottom: footer.top
            }

            ExplorerPane {
                id: explorer

                width: Math.round(Math.min(640, Math.max(399, root.width * 0.36)))
                height: parent.height
                doctor: root.doctor
            }
            Rectangle {
                x: explorer.width
                width: 1
                height: parent.height
                color: Theme.over(Theme.line, Theme.panel)
            }
            FindingsPane {
                id: findings

                x: explorer.width + 1
                width: parent.width - x
                height: parent.height
                doctor: root.doctor
                covered: card.visible ? card.height + Theme.space3 : 0
            }
            AnswerCard {
                id: card

                x: findings.x + Theme.space3
                y: parent.height - height - Theme.space3
                width: findings.width - 2 * Theme.space3
                height: implicitHeight
                question: root.doctor.question
                onShowAsked: id => root.doctor.showInFolder(id)
            }
        }
        DiskFooter {
            id: footer

            width: parent.width
            height: Scaled.px(64)
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
