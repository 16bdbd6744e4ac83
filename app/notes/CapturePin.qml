import QtQuick
import Ambrel.Kit
import Ambrel.Notes

// A numbered pin on the capture. It is dragged to move it, and a click chooses its note.
Rectangle {
    id: root

    required property ScreenNotesModel notes
    required property CaptureView view
    required property string pinId
    required property int number
    required property string note
    required property point place
    required property color tone
    readonly property bool isChosen: notes.chosenPin === pinId

    x: view.frame.x + place.x * view.frame.width - width / 2
    y: view.frame.y + place.y * view.frame.height - height / 2
    width: 26
    height: 26
    radius: 13
    color: tone
    border.width: 2
    border.color: "white"
    scale: isChosen ? 1.15 : 1
    Accessible.role: Accessible.Button
    Accessible.name: qsTr("Pin %1: %2").arg(number).arg(note === "" ? qsTr("no text") : note)
    Accessible.onPressAction: root.notes.chosenPin = root.pinId

    Label {
        anchors.centerIn: parent
        text: root.number
        role: Theme.captionStrong
        color: "white"
        Accessible.ignored: true
    }
    MouseArea {
        property bool moves: false

        anchors.fill: parent
        cursorShape: Qt.SizeAllCursor
        onPressed: {
            moves = false;
            root.notes.chosenPin = root.pinId;
        }
        onPositionChanged: mouse => {
            const at = mapToItem(root.view, mouse.x, mouse.y);
            moves = moves || Math.abs(mouse.x - width / 2) > 4 || Math.abs(mouse.y - height / 2) > 4;
            if (moves)
                root.notes.movePin(root.pinId, root.view.placeOf(Qt.point(at.x, at.y)));
        }
        onReleased: root.notes.endRun()
    }
}
