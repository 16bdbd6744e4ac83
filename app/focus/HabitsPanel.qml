import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The habits: ticking off today, adding and removing.
Popover {
    id: root

    required property HabitStore habits

    title: qsTr("Habits")
    symbol: "checklist"
    implicitHeight: Scaled.px(420)

    Field {
        id: field
        x: Theme.space4
        y: Theme.space2
        width: parent.width - 2 * Theme.space4
        symbol: "plus"
        hint: root.habits.face.isFull ? qsTr("The list is full") : qsTr("Add a habit")
        enabled: !root.habits.face.isFull
        maximumLength: 60
        focus: true
        onAccepted: if (root.habits.add(text))
            text = ""
    }
    EmptyState {
        anchors.centerIn: parent
        width: parent.width
        visible: root.habits.face.count === 0
        symbol: "checklist"
        title: qsTr("No habits yet")
        sentence: qsTr("Type one above and press Return. Tick it off each day, and see how long you keep it up.")
    }
    ListView {
        id: list
        anchors.fill: parent
        anchors.topMargin: field.y + field.height + Theme.space2
        anchors.leftMargin: Theme.space2
        anchors.rightMargin: Theme.space2
        clip: true
        model: root.habits.rows
        boundsBehavior: Flickable.StopAtBounds

        delegate: ListRow {
            id: row

            required property string habitId
            required property string name
            required property bool isDone
            required property string streakText

            width: list.width
            symbol: isDone ? "checkmark.circle.fill" : "circle"
            symbolTone: isDone ? Theme.green : null
            title: name
            detail: streakText
            accessibleRole: Accessible.CheckBox
            Accessible.checkable: true
            Accessible.checked: isDone
            onClicked: root.habits.toggleToday(habitId)

            IconButton {
                anchors.verticalCenter: parent.verticalCenter
                symbol: "trash"
                label: qsTr("Remove %1").arg(row.name)
                onClicked: root.habits.remove(row.habitId)
            }
        }
    }
}
