import QtQuick
import Ambrel.Calendar
import Ambrel.Kit

// The next event, or the one that has just begun; its meeting can be joined right here.
TileFrame {
    id: root

    required property CalendarModel calendar
    property calendarFace face: calendar.face
    readonly property eventRow next: face.next
    readonly property bool hasEvent: next.eventId !== ""
    readonly property bool canJoin: hasEvent && next.hasLink && (next.isNear || next.isNow)

    panel: Qt.resolvedUrl("CalendarPanel.qml")
    problem: face.problem
    name: isMedium && hasEvent ? next.when : caption
    label: hasEvent && !isUnavailable ? title + ", " + next.title + ", " + next.when + ", " + next.time : spoken
    tip: hasEvent && !isUnavailable ? next.title + ", " + next.when : ""
    fact: isWide && hasEvent ? next.when : ""
    value: hasEvent ? next.title : qsTr("Nothing planned")
    valueRole: Theme.rowTitle
    subLine: hasEvent ? next.time : isWide ? qsTr("for the next weeks") : ""
    reserved: canJoin ? join.width + Theme.space1 : 0

    IconButton {
        id: join
        visible: root.canJoin
        anchors.right: parent.right
        anchors.rightMargin: -4
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 2
        symbol: "arrow.up.forward.square"
        ink: Theme.blue.text
        label: qsTr("Join %1").arg(root.next.title)
        onClicked: root.calendar.join(root.next.eventId)
    }
}
