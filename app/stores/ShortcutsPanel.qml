import QtQuick
import Ambrel.Base
import Ambrel.Kit
import Ambrel.Stores

// What the tile can run: a script of the user's own, an installed program, or what a program offers.
Popover {
    id: root

    required property StoresArea area
    required property ShortcutModel shortcut
    required property Presentation presentation

    // A script was removed since the panel was made.
    property bool hasRemoved: false

    implicitWidth: Scaled.px(400)
    implicitHeight: Scaled.px(460)
    title: qsTr("Shortcuts")
    symbol: "command"
    onAboutToOpen: shortcut.search(field.text)

    headerItems: Button {
        anchors.verticalCenter: parent.verticalCenter
        size: 28
        symbol: "plus"
        text: qsTr("Script…")
        label: qsTr("Add a script")
        onClicked: root.area.askForScript()
    }

    Field {
        id: field

        x: Theme.space4
        y: Theme.space2
        width: parent.width - 2 * Theme.space4
        isSearch: true
        hint: qsTr("Search for what to run")
        focus: true
        onTextChanged: root.shortcut.search(text)
        onAccepted: if (text !== "" && view.count > 0) {
            root.shortcut.chooseFirst();
            root.presentation.dismiss();
        }
    }
    EmptyState {
        anchors.centerIn: parent
        width: parent.width
        visible: view.count === 0
        symbol: "command"
        title: field.text === "" ? qsTr("No programs found") : qsTr("No matches")
        sentence: qsTr("Programs and what they offer appear here, and scripts that you add.")
    }
    RowsView {
        id: view

        anchors {
            left: parent.left
            right: parent.right
            top: field.bottom
            bottom: bar.visible ? bar.top : parent.bottom
            margins: Theme.space2
        }
        model: root.shortcut.rows

        delegate: ListRow {
            id: item

            required property shortcutRow row
            required property int index

            width: view.width
            symbol: row.isScript ? "terminal" : "command"
            picture: row.picture
            title: row.name
            detail: row.detail
            isStrong: row.isChosen
            isCurrent: row.isChosen
            accessibleRole: Accessible.RadioButton
            Accessible.checkable: true
            Accessible.checked: row.isChosen
            onClicked: {
                root.shortcut.choose(row.shortcutId);
                root.presentation.dismiss();
            }
            onActiveFocusChanged: if (activeFocus)
                view.reveal(index)

            IconButton {
                anchors.verticalCenter: parent.verticalCenter
                visible: item.row.isScript
                symbol: "trash"
                label: qsTr("Remove %1").arg(item.row.name)
                onClicked: {
                    root.hasRemoved = true;
                    root.shortcut.removeScript(item.row.shortcutId);
                }
            }
        }
    }
    UndoBar {
        id: bar

        anchors.bottom: parent.bottom
        removed: root.hasRemoved ? root.shortcut.face.removed : ""
        onUndone: root.shortcut.undo()
    }
}
