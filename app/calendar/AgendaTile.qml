import QtQuick
import Ambrel.Base
import Ambrel.Calendar
import Ambrel.Kit

// What is left of today: up to three events.
TileFrame {
    id: root

    required property CalendarModel calendar
    property calendarFace face: calendar.face
    readonly property RowList events: calendar.today
    readonly property bool hasList: !isUnavailable && events.count > 0

    panel: Qt.resolvedUrl("CalendarPanel.qml")
    problem: face.problem
    hasHeader: !hasList
    label: isUnavailable ? spoken : title + ", " + face.todaySummary
    tip: hasList ? face.todaySummary : ""
    value: hasList || isUnavailable ? "" : qsTr("Nothing left today")
    valueRole: Theme.rowTitle
    subLine: hasList || face.next.eventId === "" ? "" : qsTr("Next: %1").arg(face.next.when)

    Column {
        visible: root.hasList
        width: parent.width

        Repeater {
            model: root.hasList ? root.events : null

            Item {
                id: line

                required property string title
                required property string start
                required property bool isNow

                width: root.inner.width
                height: Math.floor(root.inner.height / 3)

                Label {
                    id: time
                    width: root.isMedium ? 0 : Math.min(implicitWidth, parent.width / 3)
                    visible: width > 0 && text !== ""
                    height: parent.height
                    text: line.start
                    role: Theme.small
                    color: line.isNow ? Theme.blue.text : Theme.ink2
                    Accessible.ignored: true
                }
                Label {
                    anchors.left: time.right
                    anchors.leftMargin: time.visible ? Theme.space2 : 0
                    anchors.right: parent.right
                    height: parent.height
                    text: line.title
                    role: line.start === "" ? Theme.small : Theme.smallMedium
                    color: line.start === "" ? Theme.ink2 : Theme.ink
                    Accessible.ignored: true
                }
            }
        }
    }
}
