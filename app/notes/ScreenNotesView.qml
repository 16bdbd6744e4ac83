import QtQuick
import Ambrel.Base
import Ambrel.Kit
import Ambrel.Model
import Ambrel.Notes
import Ambrel.Window

// The window of Screen Notes: a capture with its marks, the tools above it, and the notes beside it.
WindowFrame {
    id: root

    required property ScreenNotesModel notes
    readonly property bool isAsking: notes.face.asksToClose

    title: qsTr("Screen Notes")
    symbol: "mappin.and.ellipse"
    onIsAskingChanged: if (!isAsking)
        canvas.view.forceActiveFocus()
    Keys.onEscapePressed: if (!canvas.abandon())
        notes.askToClose()
    // A tool's letter, unless it is typed into a note, which takes it first.
    Keys.onPressed: event => {
        const tools = ({
                [Qt.Key_V]: "select",
                [Qt.Key_P]: "pin",
                [Qt.Key_H]: "highlight",
                [Qt.Key_C]: "crop"
            });
        const tool = tools[KeyPlaces.usual(event.key, event.nativeScanCode)];
        const isControl = event.modifiers & Qt.ControlModifier;
        event.accepted = true;
        if (event.key === Qt.Key_PageUp)
            root.notes.showPage(root.notes.face.pageNumber - 1);
        else if (event.key === Qt.Key_PageDown)
            root.notes.showPage(root.notes.face.pageNumber + 1);
        else if (event.modifiers === Qt.NoModifier && tool)
            toolbar.tool = tool;
        else if (isControl && (event.key === Qt.Key_Y || event.key === Qt.Key_Z && event.modifiers & Qt.ShiftModifier))
            root.notes.redo();
        else if (isControl && event.key === Qt.Key_Z)
            root.notes.undo();
        else if (isControl && (event.key === Qt.Key_Plus || event.key === Qt.Key_Equal))
            canvas.view.zoomBy(1.25, Qt.point(canvas.view.width / 2, canvas.view.height / 2));
        else if (isControl && event.key === Qt.Key_Minus)
            canvas.view.zoomBy(1 / 1.25, Qt.point(canvas.view.width / 2, canvas.view.height / 2));
        else if (isControl && event.key === Qt.Key_0)
            canvas.view.fit();
        else
            event.accepted = false;
    }

    Item {
        anchors.fill: parent
        // The keyboard stays in the sheet above.
        enabled: !root.isAsking

        NotesToolbar {
            id: toolbar

            anchors {
                left: parent.left
                right: line.left
            }
            notes: root.notes
            view: canvas.view
        }
        CaptureCanvas {
            id: canvas

            anchors {
                left: parent.left
                right: line.left
                top: toolbar.bottom
                bottom: foot.top
            }
            focus: true
            notes: root.notes
            tool: toolbar.tool
            onPinPlaced: pane.writeChosen()
        }
        EmptyState {
            anchors.fill: canvas
            visible: root.notes.face.pageCount === 0
            symbol: "camera.viewfinder"
            title: qsTr("No capture")
            sentence: keys.value ? qsTr("%1 captures the screen under the pointer.").arg(keys.value) : qsTr("A click on the tile captures the screen under the pointer.")

            SettingValue {
                id: keys
                key: "notesKeys"
            }
        }
        Item {
            id: foot

            anchors {
                left: parent.left
                right: line.left
                bottom: parent.bottom
            }
            height: Scaled.px(36)

            Label {
                x: Theme.space4
                anchors.verticalCenter: parent.verticalCenter
                width: parent.width - captured.width - 3 * Theme.space4
                text: ({
                        select: qsTr("Drag a pin to move it, or the capture to see more of it"),
                        pin: qsTr("Click to place a pin"),
                        highlight: qsTr("Drag to mark an area"),
                        crop: qsTr("Drag over what is to stay, or click on a window")
                    })[toolbar.tool]
                role: Theme.small
                color: Theme.ink2
            }
            Label {
                id: captured

                anchors.right: parent.right
                anchors.rightMargin: Theme.space4
                anchors.verticalCenter: parent.verticalCenter
                text: root.notes.face.capturedText
                role: Theme.small
                color: Theme.ink2
            }
        }
        Rectangle {
            id: line

            anchors {
                right: pane.left
                top: parent.top
                bottom: parent.bottom
            }
            width: 1
            color: Theme.over(Theme.line, Theme.panel)
        }
        NotesPane {
            id: pane

            anchors {
                right: parent.right
                top: parent.top
                bottom: parent.bottom
            }
            width: 310
            notes: root.notes
            onNoteDone: canvas.view.forceActiveFocus()
        }
    }
    CloseSheet {
        anchors.fill: parent
        visible: root.isAsking
        notes: root.notes
    }
}
