import QtQuick
import Ambrel.Calendar
import Ambrel.Kit
import Ambrel.Model
import Ambrel.Panels

SettingsPage {
    id: root

    property CalendarModel calendar: null
    property string problem

    Section {
        SettingRow {
            key: "calendarsFound"
            title: qsTr("Calendars on this computer")
            detail: qsTr("Those of khal, vdirsyncer, GNOME and KDE are found by themselves. They are only read.")
        }
        SectionRow {
            title: qsTr("Add a calendar")
            detail: root.problem !== "" ? root.problem : qsTr("A folder, an iCalendar file, or an https address")
            detailColor: root.problem !== "" ? Theme.red.text : Theme.ink2

            Field {
                width: Scaled.px(260)
                label: qsTr("Add a calendar")
                hint: qsTr("~/folder or https://…")
                symbol: "plus"
                onTextChanged: root.problem = ""
                onAccepted: {
                    root.problem = root.calendar.addPlace(text);
                    if (root.problem === "")
                        text = "";
                }
            }
        }
    }
    Section {
        visible: list.count > 0

        Repeater {
            id: list
            model: root.calendar ? root.calendar.sources : null

            SectionRow {
                id: line

                required property sourceRow row

                title: row.name
                detail: row.detail
                detailColor: row.hasProblem ? Theme.red.text : Theme.ink2

                Switch {
                    anchors.verticalCenter: parent.verticalCenter
                    label: qsTr("Show %1").arg(line.title)
                    visible: !line.row.hasProblem
                    checked: line.row.isShown
                    onToggled: checked => root.calendar.setShown(line.title, checked)
                }
                IconButton {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: line.row.added !== ""
                    symbol: "xmark"
                    label: qsTr("Remove %1").arg(line.title)
                    onClicked: root.calendar.removePlace(line.row.added)
                }
            }
        }
    }
    TextListSection {
        title: qsTr("Your mail addresses")
        detail: qsTr("Invitations that they have declined are not shown")
        hint: qsTr("name@example.org")
        texts: root.settings.calendarOwnAddresses
        onChosen: texts => root.settings.calendarOwnAddresses = texts
    }
}
