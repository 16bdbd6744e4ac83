import QtQuick
import Ambrel.Calendar
import Ambrel.Kit

// The next event, and the days of the next two weeks.
Popover {
    id: root

    required property CalendarModel calendar
    readonly property eventRow next: calendar.face.next

    signal settingsAsked(string tab)

    implicitWidth: Scaled.px(400)
    implicitHeight: Scaled.px(460)
    title: qsTr("Calendar")
    symbol: "calendar"
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
        visible: root.calendar.face.problem === "" && root.calendar.agenda.count === 0
        symbol: "calendar"
        title: qsTr("Nothing planned")
        sentence: qsTr("The events of the next two weeks appear here.")
    }
    Rectangle {
        id: card
        x: Theme.space4
        y: Theme.space3
        width: parent.width - 2 * Theme.space4
        height: visible ? words.height + 2 * Theme.space3 : 0
        visible: root.next.eventId !== "" && root.calendar.face.problem === ""
        radius: Theme.radiusCard
        color: Theme.card
        border.width: 1
        border.color: Theme.over(Theme.line, Theme.card)

        Column {
            id: words
            x: Theme.space3
            y: Theme.space3
            width: parent.width - 2 * Theme.space3 - (join.visible ? join.width + Theme.space3 : 0)

            Label {
                width: parent.width
                text: root.next.when
                role: Theme.captionStrong
                color: root.next.isNear ? Theme.orange.text : Theme.ink2
            }
            TipLabel {
                width: parent.width
                text: root.next.title
                role: Theme.panelTitle
            }
            TipLabel {
                width: parent.width
                text: root.next.detail === "" ? root.next.time : root.next.time + " · " + root.next.detail
                role: Theme.small
                color: Theme.ink2
            }
        }
        Button {
            id: join
            anchors.right: parent.right
            anchors.rightMargin: Theme.space3
            anchors.verticalCenter: parent.verticalCenter
            visible: root.next.hasLink
            kind: Button.Primary
            // One that cannot be seen would swallow the first Tab.
            focus: visible
            text: qsTr("Join")
            label: qsTr("Join %1").arg(root.next.title)
            onClicked: root.calendar.join(root.next.eventId)
        }
    }
    DayList {
        anchors {
            fill: parent
            topMargin: card.visible ? card.y + card.height + Theme.space1 : Theme.space2
        }
        visible: root.calendar.face.problem === ""
        model: root.calendar.agenda
        section.property: "day"
        Accessible.name: qsTr("Events")

        delegate: ListRow {
            id: line

            required property eventRow row

            x: Theme.space2
            width: ListView.view.width - 2 * Theme.space2
            symbol: row.isAllDay ? "calendar" : "clock"
            symbolTone: row.isNow ? Theme.blue : null
            title: row.title
            detail: row.detail === "" ? row.time : row.time + " · " + row.detail
            isPressable: row.hasLink
            onClicked: root.calendar.join(row.eventId)

            Label {
                anchors.verticalCenter: parent.verticalCenter
                visible: text !== ""
                text: line.row.wait
                role: Theme.small
                color: line.row.isNow ? Theme.blue.text : Theme.ink2
                Accessible.ignored: true
            }
            IconButton {
                anchors.verticalCenter: parent.verticalCenter
                visible: line.row.hasLink
                symbol: "arrow.up.forward.square"
                label: qsTr("Join %1").arg(line.title)
                onClicked: root.calendar.join(line.row.eventId)
            }
        }
    }
}
