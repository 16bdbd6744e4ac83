import QtQuick
import Ambrel.Kit
import Ambrel.Notes

// The capture with its marks. With the pointer: a click or a drag does what the tool does. With the keyboard: arrows
// move a cross, Return places a pin or one corner and then the other of an area, Delete removes the mark under it.
FocusScope {
    id: root

    required property ScreenNotesModel notes
    property string tool: "pin"
    readonly property CaptureView view: picture
    // Where the keyboard's cross is, as fractions of the capture.
    property point cross: Qt.point(0.5, 0.5)
    // The first corner of an area that is being drawn; none: negative.
    property point corner: Qt.point(-1, -1)
    readonly property rect drawn: corner.x < 0 ? Qt.rect(0, 0, 0, 0) : boxOf(corner, end)
    property point end: Qt.point(0, 0)
    // Half a pin, as fractions of the capture.
    readonly property size reach: Qt.size(13 / Math.max(1, picture.frame.width), 13 / Math.max(1, picture.frame.height))

    // A new pin's note is to be written.
    signal pinPlaced

    function boxOf(a: point, b: point): rect {
        return Qt.rect(Math.min(a.x, b.x), Math.min(a.y, b.y), Math.abs(a.x - b.x), Math.abs(a.y - b.y));
    }
    function place(at: point) {
        root.notes.addPin(at);
        root.pinPlaced();
    }
    // The second corner is there.
    function finish() {
        const box = root.drawn;
        root.corner = Qt.point(-1, -1);
        if (root.tool === "highlight")
            root.notes.addHighlight(box);
        else if (root.tool === "crop")
            root.notes.crop(box);
    }
    function abandon(): bool {
        const draws = root.corner.x >= 0;
        root.corner = Qt.point(-1, -1);
        return draws;
    }
    function moveCross(dx: real, dy: real) {
        root.cross = Qt.point(Math.max(0, Math.min(1, root.cross.x + dx)), Math.max(0, Math.min(1, root.cross.y + dy)));
        root.end = root.cross;
        picture.reveal(root.cross);
        if (root.tool === "select" && root.notes.chosenPin !== "")
            root.notes.movePin(root.notes.chosenPin, root.cross);
    }
    function act() {
        if (root.tool === "pin") {
            root.place(root.cross);
        } else if (root.tool !== "select") {
            if (root.corner.x >= 0) {
                root.finish();
            } else {
                root.corner = root.cross;
                root.end = root.cross;
            }
        } else {
            root.notes.chosenPin = root.notes.pinAt(root.cross, root.reach);
        }
    }

    onToolChanged: abandon()

    Rectangle {
        anchors.fill: parent
        color: Theme.field
    }
    CaptureView {
        id: picture

        anchors.fill: parent
        anchors.margins: Theme.space4
        picture: root.notes.picture
        activeFocusOnTab: true
        focus: true
        Accessible.role: Accessible.Graphic
        Accessible.name: qsTr("%1, %2").arg(root.notes.face.pageText).arg(root.notes.face.sizeText)
        Accessible.description: qsTr("Arrows move the cross, Return acts at it with the chosen tool.")
        Keys.onPressed: event => {
            const step = event.modifiers & Qt.ShiftModifier ? 0.1 : 0.01;
            const moves = ({
                    [Qt.Key_Left]: [-step, 0],
                    [Qt.Key_Right]: [step, 0],
                    [Qt.Key_Up]: [0, -step],
                    [Qt.Key_Down]: [0, step]
                });
            const move = moves[event.key];
            event.accepted = true;
            if (event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier))
                event.accepted = false;
            else if (move)
                root.moveCross(move[0], move[1]);
            else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter || event.key === Qt.Key_Space)
                root.act();
            else if (event.key === Qt.Key_Delete || event.key === Qt.Key_Backspace)
                root.notes.removeMarkAt(root.cross, root.reach);
            else
                event.accepted = false;
        }

        MouseArea {
            id: pointer

            // Where the pointer was when the drag of the picture began.
            property point from

            anchors.fill: parent
            acceptedButtons: Qt.LeftButton | Qt.MiddleButton
            hoverEnabled: root.tool === "crop"
            cursorShape: root.tool === "select" ? Qt.OpenHandCursor : Qt.CrossCursor
            onPressed: mouse => {
                picture.forceActiveFocus();
                from = Qt.point(mouse.x, mouse.y);
                const at = picture.placeOf(from);
                root.cross = at;
                root.end = at;
                if (mouse.button === Qt.LeftButton && (root.tool === "highlight" || root.tool === "crop"))
                    root.corner = at;
            }
            onPositionChanged: mouse => {
                const at = Qt.point(mouse.x, mouse.y);
                if (!pressed)
                    return;
                if (root.corner.x >= 0) {
                    root.end = picture.placeOf(at);
                } else if (root.tool === "select" || (pressedButtons & Qt.MiddleButton)) {
                    picture.pan(at.x - from.x, at.y - from.y);
                    from = at;
                }
            }
            onReleased: mouse => {
                if (mouse.button !== Qt.LeftButton)
                    return;
                const at = picture.placeOf(Qt.point(mouse.x, mouse.y));
                if (root.tool === "pin") {
                    root.place(at);
                } else if (root.corner.x >= 0) {
                    const isClick = Math.abs(mouse.x - from.x) < 4 && Math.abs(mouse.y - from.y) < 4;
                    const window = root.tool === "crop" && isClick ? root.notes.windowAt(at) : Qt.rect(0, 0, 0, 0);
                    if (window.width > 0) {
                        root.corner = Qt.point(window.x, window.y);
                        root.end = Qt.point(window.x + window.width, window.y + window.height);
                    }
                    root.finish();
                } else {
                    root.notes.chosenPin = "";
                }
            }
            onCanceled: root.abandon()
            onWheel: wheel => {
                if (wheel.modifiers & Qt.ControlModifier)
                    picture.zoomBy(Math.pow(1.25, wheel.angleDelta.y / 120), Qt.point(wheel.x, wheel.y));
                else
                    picture.pan(wheel.angleDelta.x / 2, wheel.angleDelta.y / 2);
            }
        }
        // The window that a click crops to.
        Rectangle {
            readonly property rect box: root.notes.face.sizeText !== "" && pointer.containsMouse && root.corner.x < 0 && root.tool === "crop" ? root.notes.windowAt(picture.placeOf(Qt.point(pointer.mouseX, pointer.mouseY))) : Qt.rect(0, 0, 0, 0)

            visible: box.width > 0 && (box.width < 1 || box.height < 1)
            x: picture.frame.x + box.x * picture.frame.width
            y: picture.frame.y + box.y * picture.frame.height
            width: box.width * picture.frame.width
            height: box.height * picture.frame.height
            color: "transparent"
            border.width: 2
            border.color: Theme.accent
        }
        CaptureMarks {
            anchors.fill: parent
            notes: root.notes
            view: picture
            drawn: root.drawn
            cross: root.cross
            showsCross: picture.activeFocus && KeyboardFocus.isShown
            canSelect: root.tool === "select"
        }
        FocusRing {
            targetRadius: Theme.radiusSmall
        }
    }
}
