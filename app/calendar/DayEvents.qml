import QtQuick
import Ambrel.Calendar
import Ambrel.Kit

// The events of one day, below a calendar. Takes no room on a day without any.
Column {
    id: root

    required property CalendarModel calendar
    // As "2026-11-22".
    required property string day
    readonly property int mostRows: 4
    property var events: calendar ? calendar.eventsOf(day) : []

    Connections {
        target: root.calendar // qmllint disable
        function onEventsChanged() {
            root.events = Qt.binding(() => root.calendar ? root.calendar.eventsOf(root.day) : []);
        }
    }

    Repeater {
        model: root.events.slice(0, root.mostRows)

        ListRow {
            id: row

            required property eventRow modelData

            width: root.width
            symbol: modelData.isAllDay ? "calendar" : "clock"
            symbolTone: modelData.isNow ? Theme.blue : null
            title: modelData.title
            detail: modelData.detail === "" ? modelData.time : modelData.time + " · " + modelData.detail
            isPressable: modelData.hasLink
            onClicked: root.calendar.join(modelData.eventId)

            IconButton {
                anchors.verticalCenter: parent.verticalCenter
                visible: row.modelData.hasLink
                symbol: "arrow.up.forward.square"
                label: qsTr("Join %1").arg(row.title)
                onClicked: root.calendar.join(row.modelData.eventId)
            }
        }
    }
    Label {
        x: Theme.space2
        visible: root.events.length > root.mostRows
        text: qsTr("and %1 more").arg(root.events.length - root.mostRows)
        role: Theme.small
        color: Theme.ink2
    }
}
