import QtQuick
import Ambrel.Base
import Ambrel.Kit
import Ambrel.Notes

// The picture that was taken: a drag chooses an area of it, a click a window. It is saved or copied, and then gone.
Popover {
    id: root

    required property ScreenshotModel screenshot
    required property Presentation presentation
    readonly property screenshotFace face: screenshot.face

    implicitWidth: 640
    implicitHeight: 520
    title: qsTr("Screenshot")
    symbol: "camera.viewfinder"
    fact: face.sizeText
    // The model may have ended before its panel.
    onOpenChanged: if (!open && screenshot && !face.isWaiting)
        screenshot.drop()

    EmptyState {
        anchors.centerIn: parent
        visible: !root.face.hasPicture
        width: parent.width
        symbol: "camera.viewfinder"
        title: root.face.isWaiting ? qsTr("In a moment") : qsTr("No picture")
        sentence: qsTr("Take a screenshot to see it here.")
    }
    CaptureView {
        id: view

        anchors {
            fill: parent
            leftMargin: Theme.space4
            rightMargin: Theme.space4
            topMargin: Theme.space2
            bottomMargin: buttons.height + hint.height + 2 * Theme.space3 + Theme.space4
        }
        visible: root.face.hasPicture
        picture: root.screenshot.picture
        Accessible.role: Accessible.Graphic
        Accessible.name: qsTr("The screenshot, %1 chosen").arg(root.face.sizeText)

        readonly property rect chosen: {
            const box = pointer.isDrawing ? pointer.drawn : root.face.box;
            return Qt.rect(frame.x + box.x * frame.width, frame.y + box.y * frame.height, box.width * frame.width, box.height * frame.height);
        }

        // What is not chosen is dim, below a frame that reaches beyond the picture.
        Item {
            x: view.frame.x
            y: view.frame.y
            width: view.frame.width
            height: view.frame.height
            clip: true

            Rectangle {
                readonly property int reach: 1000

                x: view.chosen.x - view.frame.x - reach
                y: view.chosen.y - view.frame.y - reach
                width: view.chosen.width + 2 * reach
                height: view.chosen.height + 2 * reach
                color: "transparent"
                border.width: reach
                border.color: "#80000000"
            }
        }
        Rectangle {
            x: view.chosen.x
            y: view.chosen.y
            width: view.chosen.width
            height: view.chosen.height
            color: "transparent"
            border.width: 2
            border.color: Theme.accent
        }
        MouseArea {
            id: pointer

            property point from
            property point to
            property bool isDrawing: false
            readonly property rect drawn: Qt.rect(Math.min(from.x, to.x), Math.min(from.y, to.y), Math.abs(to.x - from.x), Math.abs(to.y - from.y))

            anchors.fill: parent
            cursorShape: Qt.CrossCursor
            onPressed: mouse => from = view.placeOf(Qt.point(mouse.x, mouse.y))
            onPositionChanged: mouse => {
                to = view.placeOf(Qt.point(mouse.x, mouse.y));
                if (drawn.width * view.frame.width > 4 || drawn.height * view.frame.height > 4)
                    isDrawing = true;
            }
            onReleased: {
                if (isDrawing)
                    root.screenshot.choose(drawn);
                else
                    root.screenshot.chooseWindowAt(from);
                isDrawing = false;
            }
            onCanceled: isDrawing = false
        }
    }
    Label {
        id: hint

        anchors {
            left: view.left
            right: view.right
            bottom: buttons.top
            bottomMargin: Theme.space3
        }
        visible: root.face.hasPicture
        text: root.face.hasWindows ? qsTr("Drag over an area, or click a window.") : qsTr("Drag over an area.")
        role: Theme.small
        color: Theme.ink2
    }
    Item {
        id: buttons

        anchors {
            left: view.left
            right: view.right
            bottom: parent.bottom
            bottomMargin: Theme.space4
        }
        height: save.height

        Row {
            spacing: Theme.space2

            Chip {
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("Whole Screen")
                isChosen: root.face.isWhole
                enabled: root.face.hasPicture
                onClicked: root.screenshot.chooseAll()
            }
            Chip {
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("Next Window")
                visible: root.face.hasWindows
                onClicked: root.screenshot.chooseNextWindow()
            }
            Chip {
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("In 5 Seconds")
                onClicked: {
                    root.presentation.dismiss();
                    root.screenshot.takeLater();
                }
            }
        }
        Row {
            anchors.right: parent.right
            spacing: Theme.space2

            Button {
                symbol: "doc.on.doc"
                text: qsTr("Copy")
                enabled: root.face.hasPicture && !root.face.isSaving
                onClicked: {
                    root.screenshot.copy();
                    root.presentation.dismiss();
                }
            }
            Button {
                id: save

                kind: Button.Primary
                symbol: "square.and.arrow.down"
                text: qsTr("Save")
                focus: true
                enabled: root.face.hasPicture && !root.face.isSaving
                onClicked: {
                    root.screenshot.save();
                    root.presentation.dismiss();
                }
            }
        }
    }
}
