import QtQuick
import Ambrel.Kit
import Ambrel.Stores

// The things to do; a click checks one off.
ListPanel {
    id: root

    required property EditedList todos

    entries: todos
    title: qsTr("To-Do")
    symbol: "checklist"
    isChecklist: true
    hint: qsTr("Add something to do")
    titleHint: qsTr("What to do")
    emptyTitle: qsTr("Nothing to do")
    emptySentence: qsTr("Type something above and press Return.")
    onChosen: id => todos.toggle(id)

    headerItems: IconButton {
        anchors.verticalCenter: parent.verticalCenter
        visible: root.todos.face.done > 0
        symbol: "clear"
        label: qsTr("Remove what is done")
        onClicked: {
            root.hasRemoved = true;
            root.todos.removeDone();
        }
    }
}
