import QtQuick
import Ambrel.Calendar
import Ambrel.Kit
import Ambrel.Model
import Ambrel.Time

// The calendar, a month to a page, and what is to be said of the chosen day.
Popover {
    id: root

    required property MonthModel month
    property CalendarModel calendar: null

    signal copyAsked(text: string)

    title: qsTr("Calendar")
    symbol: "calendar"
    implicitWidth: grid.implicitWidth + 2 * Theme.space4
    fitted: rows
    onAboutToOpen: {
        month.goToToday();
        grid.forceActiveFocus();
    }

    PanelColumn {
        id: rows

        MonthGrid {
            id: grid

            width: parent.width
            month: root.month
            focus: true
        }
        Item {
            width: parent.width
            height: words.height

            Column {
                id: words

                x: Theme.space2
                width: copy.x - x - Theme.space2

                TipLabel {
                    width: parent.width
                    text: root.month.face.chosenName
                    role: Theme.rowTitle
                }
                TipLabel {
                    width: parent.width
                    text: root.month.face.chosenDetail
                    role: Theme.small
                    color: Theme.ink2
                }
            }
            IconButton {
                id: copy

                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                symbol: "doc.on.doc"
                label: qsTr("Copy %1").arg(root.month.face.chosen)
                onClicked: root.copyAsked(root.month.face.chosen)
            }
        }
        DayEvents {
            width: parent.width
            calendar: root.calendar
            day: root.month.face.chosen
        }
        Section {
            SettingRow {
                key: "weekNumbering"
                title: qsTr("Weeks")
                options: [qsTr("ISO 8601"), qsTr("Local")]
            }
        }
    }
}
