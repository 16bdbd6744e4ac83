import QtQuick
import Ambrel.Kit

// Lines of text to type; what does not fit scrolls. Tab leaves it.
FocusScope {
    id: root

    readonly property alias text: edit.text
    property string hint
    property string label: hint
    property bool hasGround: true
    property alias input: edit
    property bool isShowing: false

    // The user has changed the text; not told of what `show` does.
    signal edited

    function toEnd() {
        edit.cursorPosition = edit.length;
    }
    // Takes the text over and leaves the cursor where it was.
    function show(next: string) {
        if (next === edit.text)
            return;
        const at = edit.cursorPosition;
        isShowing = true;
        edit.text = next;
        isShowing = false;
        edit.cursorPosition = Math.min(at, edit.length);
    }
    function reveal(place: rect) {
        if (place.y < flick.contentY)
            flick.contentY = place.y;
        else if (place.y + place.height > flick.contentY + flick.height)
            flick.contentY = place.y + place.height - flick.height;
    }

    implicitWidth: 200
    implicitHeight: 96

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusCard
        color: root.hasGround ? Theme.field : "transparent"
        border.width: edit.activeFocus ? 2 : root.hasGround ? 1 : 0
        border.color: edit.activeFocus ? Theme.accent : Theme.over(Theme.lineStrong, Theme.field)
    }
    Flickable {
        id: flick
        anchors.fill: parent
        anchors.margins: Theme.space3
        clip: true
        contentWidth: width
        contentHeight: edit.height
        boundsBehavior: Flickable.StopAtBounds

        TextEdit {
            id: edit
            width: flick.width
            height: Math.max(implicitHeight, flick.height)
            focus: true
            activeFocusOnTab: true
            color: Theme.ink
            font: Theme.body.font
            wrapMode: TextEdit.Wrap
            selectByMouse: true
            selectionColor: Theme.accent
            selectedTextColor: Theme.onAccent
            textFormat: TextEdit.PlainText
            Accessible.role: Accessible.EditableText
            Accessible.name: root.label
            Accessible.multiLine: true
            onTextChanged: if (!root.isShowing)
                root.edited()
            onCursorRectangleChanged: root.reveal(cursorRectangle)
            Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
            cursorDelegate: Rectangle {
                width: 1.5
                color: Theme.accent
                visible: edit.activeFocus
            }

            Label {
                width: parent.width
                visible: edit.text === "" && edit.preeditText === ""
                text: root.hint
                color: Theme.ink3
                wrapMode: Text.WordWrap
                Accessible.ignored: true
            }
        }
    }
    ScrollBar {
        view: flick
        anchors {
            right: parent.right
            rightMargin: 2
            top: parent.top
            bottom: parent.bottom
            topMargin: Theme.space2
            bottomMargin: Theme.space2
        }
    }
}
