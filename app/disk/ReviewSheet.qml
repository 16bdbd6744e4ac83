import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// The confirmation with the exact list of items, and after the move the result for each. Escape and the first button
// change nothing.
FocusScope {
    id: root

    required property DiskDoctor doctor
    readonly property DiskReview review: doctor.review
    readonly property bool isReviewing: review.face.isReviewing
    readonly property bool isReported: review.face.isReported
    // Free space above and below, so that no button of the sheet is under the click that opened it.
    required property real clearance
    // Buttons do nothing until the sheet has been visible for half a second, so that the second click of a double
    // click has no effect.
    property bool isArmed: false

    function begin() {
        isArmed = false;
        arming.stop();
        if (isReviewing)
            keep.forceActiveFocus();
        else if (isReported)
            done.forceActiveFocus();
    }

    Accessible.role: Accessible.Dialog
    Accessible.name: review.face.title
    Keys.onEscapePressed: root.review.close()
    onIsReviewingChanged: begin()
    onIsReportedChanged: begin()

    // Counted from the first frame, because a long list takes time to draw.
    Connections {
        target: root.Window.window
        enabled: (root.isReviewing || root.isReported) && !root.isArmed && !arming.running

        function onAfterAnimating() {
            arming.start();
        }
    }
    Timer {
        id: arming

        interval: 500
        onTriggered: root.isArmed = true
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.panel
        opacity: 0.75
        radius: Theme.radiusTile
    }
    // Blocks clicks below.
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }

    PanelGround {
        id: sheet

        anchors.horizontalCenter: parent.horizontalCenter
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(parent.width - 2 * Theme.space6, Scaled.px(600))
        height: Math.min(parent.height - 2 * root.clearance, head.height + list.contentHeight + buttons.height + 2 * Theme.space5 + 2 * Theme.space4)

        Column {
            id: head

            x: Theme.space6
            y: Theme.space5
            width: parent.width - 2 * Theme.space6
            spacing: Theme.space1

            TipLabel {
                width: parent.width
                text: root.review.face.title
                role: Theme.title
                Accessible.role: Accessible.Heading
            }
            Label {
                width: parent.width
                text: root.review.face.detail
                color: Theme.ink2
                wrapMode: Text.WordWrap
            }
        }
        ListView {
            id: list

            anchors {
                left: parent.left
                right: parent.right
                top: head.bottom
                topMargin: Theme.space4
                bottom: buttons.top
                bottomMargin: Theme.space4
            }
            model: root.review.items
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            activeFocusOnTab: contentHeight > height
            Accessible.role: Accessible.List
            Accessible.name: root.review.face.title
            Keys.onUpPressed: contentY = Math.max(originY, contentY - 40)
            Keys.onDownPressed: contentY = Math.max(originY, Math.min(originY + contentHeight - height, contentY + 40))

            delegate: CleanupItemRow {
                width: ListView.view.width
            }

            FocusRing {
                gap: -2
            }
        }
        ScrollBar {
            view: list
            anchors {
                right: parent.right
                rightMargin: 2
                top: list.top
                bottom: list.bottom
            }
        }
        Row {
            id: buttons

            anchors {
                right: parent.right
                rightMargin: Theme.space6
                bottom: parent.bottom
                bottomMargin: Theme.space5
            }
            height: Scaled.px(36)
            spacing: Theme.space2

            Button {
                id: keep

                visible: root.isReviewing
                size: 36
                focus: true
                text: qsTr("Leave everything")
                onClicked: if (root.isArmed)
                    root.review.close()
            }
            Button {
                visible: root.isReviewing
                enabled: root.isArmed && root.review.face.canMove
                kind: Button.Primary
                size: 36
                text: qsTr("Move to the Trash")
                symbol: "trash.fill"
                onClicked: root.review.confirm()
            }
            Button {
                visible: root.isReported
                size: 36
                text: qsTr("Open the Trash")
                onClicked: if (root.isArmed)
                    root.doctor.trashAsked()
            }
            Button {
                visible: root.isReported
                size: 36
                text: qsTr("Scan again")
                symbol: "arrow.clockwise"
                onClicked: if (root.isArmed)
                    root.doctor.scanAgain()
            }
            Button {
                id: done

                visible: root.isReported
                kind: Button.Primary
                size: 36
                text: qsTr("Done")
                onClicked: if (root.isArmed)
                    root.review.close()
            }
        }
    }
}
