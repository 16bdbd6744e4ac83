import QtQuick
import Ambrel.Calendar
import Ambrel.Kit

// All open reminders, those that are due first.
Popover {
    id: root

    required property CalendarModel calendar

    signal settingsAsked(string tab)

    implicitWidth: Scaled.px(380)
    implicitHeight: Scaled.px(420)
    title: qsTr("Reminders")
    symbol: "list.bullet"
    fact: calendar.face.dueTasks > 0 ? qsTr("%1 due").arg(calendar.face.dueTasks) : ""
    headerItems: IconButton {
        anchors.verticalCenter: parent.verticalCenter
        label: qsTr("Calendar settings")
        symbol: "gearshape.fill"
        onClicked: root.settingsAsked("calendars")
    }

    NoCalendar {
        anchors.centerIn: parent
        width: parent.width
        visible: root.calendar.face.problem !== ""
        problem: root.calendar.face.problem
        onSettingsAsked: root.settingsAsked("calendars")
    }
    EmptyState {
        anchors.centerIn: parent
        width: parent.width
        visible: root.calendar.face.problem === "" && root.calendar.tasks.count === 0
        symbol: "checkmark.circle"
        title: qsTr("No open reminders")
        sentence: qsTr("The tasks of your calendars appear here until they are done.")
    }
    DayList {
        anchors.fill: parent
        anchors.topMargin: Theme.space1
        leftMargin: Theme.space2
        rightMargin: Theme.space2
        visible: root.calendar.face.problem === ""
        model: root.calendar.tasks
        section.property: "section"
        Accessible.name: qsTr("Reminders")

        delegate: ListRow {
            required property taskRow row

            width: ListView.view.width - 2 * Theme.space2
            symbol: "circle"
            symbolTone: row.isOverdue ? Theme.orange : null
            title: row.title
            detail: row.detail
            isPressable: false
        }
    }
}
