import QtQuick
import Ambrel.Kit
import Ambrel.Stores

// A list to add to, edit in its place, reorder, and remove from. What a click on an entry does is the panel's own.
Popover {
    id: root

    required property EditedList entries
    property string hint
    // What is said of a text that the list does not take.
    property string refusal
    property string emptyTitle
    property string emptySentence
    property string titleHint
    property string textHint
    property bool isTextLong: false
    property bool isChecklist: false
    property string entrySymbol: symbol
    property bool isRefused: false
    // Something was removed since the panel was made; it can be brought back later, too, by Control+Z.
    property bool hasRemoved: false

    signal chosen(string id)
    signal copyAsked(string text)

    function remove(index: int, id: string) {
        if (view.activeFocus)
            neighbourOf(index).forceActiveFocus();
        hasRemoved = true;
        entries.remove(id);
    }
    // What has the keyboard when the entry is gone.
    function neighbourOf(index: int): Item {
        if (index + 1 < view.count)
            return view.itemAtIndex(index + 1);
        return index > 0 ? view.itemAtIndex(index - 1) : field;
    }
    function undo() {
        entries.undo();
        if (!view.activeFocus)
            field.forceActiveFocus();
    }

    implicitWidth: Scaled.px(380)
    implicitHeight: Scaled.px(440)
    // It is closed for the first time before it has its list.
    onOpenChanged: if (!open && entries)
        entries.finish()
    Keys.onPressed: event => {
        event.accepted = event.matches(StandardKey.Undo) && entries.face.removed !== "";
        if (event.accepted)
            undo();
    }

    Field {
        id: field

        x: Theme.space4
        y: Theme.space2
        width: parent.width - 2 * Theme.space4
        symbol: "plus"
        hint: root.hint
        focus: true
        onTextChanged: root.isRefused = false
        onAccepted: {
            root.isRefused = root.entries.add(text) === "" && text.trim() !== "";
            if (root.isRefused)
                return;
            text = "";
            Qt.callLater(view.positionViewAtEnd); // qmllint disable
        }
    }
    Label {
        id: complaint

        anchors.top: field.bottom
        anchors.topMargin: Theme.space1
        x: Theme.space4
        width: field.width
        visible: root.isRefused
        text: root.refusal
        role: Theme.small
        color: Theme.red.text
        wrapMode: Text.WordWrap
    }
    EmptyState {
        anchors.centerIn: parent
        width: parent.width
        visible: root.entries.face.count === 0
        symbol: root.symbol
        title: root.emptyTitle
        sentence: root.emptySentence
    }
    RowsView {
        id: view

        anchors {
            left: parent.left
            right: parent.right
            top: complaint.visible ? complaint.bottom : field.bottom
            bottom: bar.visible ? bar.top : unsaved.visible ? unsaved.top : parent.bottom
            margins: Theme.space2
        }
        model: root.entries.rows

        delegate: EntryRow {
            width: view.width
            entries: root.entries
            symbol: !root.isChecklist ? root.entrySymbol : row.isDone ? "checkmark.circle.fill" : "circle"
            symbolTone: root.isChecklist && row.isDone ? Theme.green : null
            titleHint: root.titleHint
            textHint: root.textHint
            isTextLong: root.isTextLong
            isChecklist: root.isChecklist
            onChosen: root.chosen(row.entryId)
            onCopyAsked: root.copyAsked(root.entries.textOf(row.entryId))
            onRemoveAsked: root.remove(index, row.entryId)
            onActiveFocusChanged: if (activeFocus)
                view.reveal(index)
        }
        move: Transition {
            enabled: !Theme.reducedMotion

            NumberAnimation {
                property: "y"
                duration: Theme.hoverDuration
            }
        }
        moveDisplaced: move
    }
    UndoBar {
        id: bar

        anchors.bottom: unsaved.visible ? unsaved.top : parent.bottom
        removed: root.hasRemoved ? root.entries.face.removed : ""
        onUndone: root.undo()
    }
    UnsavedLine {
        id: unsaved

        problem: root.entries.face.problem
    }
}
