import QtQuick
import Ambrel.Kit
import Ambrel.Stores

// One entry of a list: shown, or being edited in its place. By keyboard: F2 edits, Delete removes, Alt with Up or Down
// moves it.
FocusScope {
    id: root

    required property EditedList entries
    required property entryRow row
    required property int index

    property string symbol
    property Tone symbolTone: null
    // What the fields of an entry are for; without a hint for the text there is none.
    property string titleHint
    property string textHint
    property bool isTextLong: false
    property bool isChecklist: false
    property bool isEditing: false

    signal chosen
    signal copyAsked
    signal removeAsked

    function edit() {
        isEditing = true;
        editor.forceActiveFocus();
    }
    function finish() {
        const hadFocus = activeFocus;
        isEditing = false;
        entries.finish();
        if (hadFocus)
            shown.forceActiveFocus();
    }

    implicitHeight: isEditing ? editor.height + 2 * Theme.space2 : shown.implicitHeight
    Keys.onPressed: event => {
        if (isEditing)
            return;
        const isMove = event.modifiers === Qt.AltModifier && (event.key === Qt.Key_Up || event.key === Qt.Key_Down);
        event.accepted = true;
        if (isMove)
            entries.move(row.entryId, event.key === Qt.Key_Up ? -1 : 1);
        else if (event.key === Qt.Key_F2)
            edit();
        else if (event.key === Qt.Key_Delete)
            removeAsked();
        else if (event.matches(StandardKey.Copy))
            copyAsked();
        else
            event.accepted = false;
    }
    onActiveFocusChanged: if (!activeFocus && isEditing)
        finish()

    ListRow {
        id: shown

        visible: !root.isEditing
        focus: true
        width: parent.width
        height: parent.height
        symbol: root.symbol
        symbolTone: root.symbolTone
        picture: root.row.picture
        letter: root.row.letter
        title: root.row.name
        detail: root.row.detail
        isStrong: !root.row.isDone
        opacity: root.row.isDone ? 0.7 : 1
        accessibleRole: root.isChecklist ? Accessible.CheckBox : Accessible.ListItem
        Accessible.checkable: root.isChecklist
        Accessible.checked: root.row.isDone
        onClicked: root.chosen()

        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            visible: shown.hovered || root.activeFocus && KeyboardFocus.isShown
            symbol: "pencil"
            label: qsTr("Edit %1").arg(root.row.name)
            onClicked: root.edit()
        }
        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            visible: shown.hovered || root.activeFocus && KeyboardFocus.isShown
            symbol: "trash"
            label: qsTr("Remove %1").arg(root.row.name)
            onClicked: root.removeAsked()
        }
    }
    DragHandler {
        property real done: 0

        enabled: !root.isEditing
        target: null
        xAxis.enabled: false
        // Else the list would scroll.
        grabPermissions: PointerHandler.CanTakeOverFromAnything
        cursorShape: active ? Qt.ClosedHandCursor : Qt.ArrowCursor
        onActiveChanged: {
            done = 0;
            if (!active)
                root.entries.finish();
        }
        onTranslationChanged: {
            const places = Math.round((translation.y - done) / root.height);
            if (!active || places === 0)
                return;
            root.entries.move(root.row.entryId, places);
            done += places * root.height;
        }
    }
    Loader {
        id: editor

        x: Theme.space2
        y: Theme.space2
        width: parent.width - 2 * Theme.space2
        active: root.isEditing
        sourceComponent: EntryEditor {
            focus: true
            width: editor.width
            title: root.row.title
            text: root.row.text
            titleHint: root.titleHint
            textHint: root.textHint
            isTextLong: root.isTextLong
            onEdited: (title, text) => root.entries.edit(root.row.entryId, title, text)
            onDone: root.finish()
        }
    }
}
