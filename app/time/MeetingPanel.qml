import QtQuick
import Ambrel.Kit
import Ambrel.Model
import Ambrel.Time

// A moment of a day in all cities, and when they are at work together.
Popover {
    id: root

    required property MeetingModel meeting

    signal copyAsked(text: string)

    title: qsTr("Meeting Planner")
    symbol: "person.2"
    fact: root.meeting.face.note
    implicitWidth: Scaled.px(420)
    implicitHeight: Scaled.px(560)
    onAboutToOpen: {
        meeting.goToBest();
        chooser.start();
    }

    CityChooser {
        id: chooser

        anchors.fill: parent
        focus: true
        cities: root.meeting.cities

        Item {
            id: head

            x: Theme.space4
            width: parent.width - 2 * Theme.space4
            height: Scaled.px(32)

            IconButton {
                id: before

                symbol: "chevron.left"
                label: qsTr("The day before")
                anchors.verticalCenter: parent.verticalCenter
                onClicked: root.meeting.moveDays(-1)
            }
            TipLabel {
                anchors.left: before.right
                anchors.right: next.left
                text: root.meeting.face.day + ", " + root.meeting.face.moment
                role: Theme.rowTitle
                horizontalAlignment: Text.AlignHCenter
                anchors.verticalCenter: parent.verticalCenter
            }
            IconButton {
                id: next

                anchors.right: parent.right
                symbol: "chevron.right"
                label: qsTr("The next day")
                anchors.verticalCenter: parent.verticalCenter
                onClicked: root.meeting.moveDays(1)
            }
        }
        Slider {
            id: slider

            x: Theme.space4 - 8
            width: parent.width - 2 * x
            anchors.top: head.bottom
            label: qsTr("Time of day")
            figure: root.meeting.face.moment
            to: root.meeting.face.positions - 1
            value: root.meeting.face.position
            onMoved: value => root.meeting.setPosition(value)
        }
        ListView {
            id: list

            anchors {
                left: parent.left
                right: parent.right
                top: slider.bottom
                bottom: foot.top
                margins: Theme.space2
            }
            clip: true
            model: root.meeting.rows
            boundsBehavior: Flickable.StopAtBounds

            delegate: Item {
                id: entry

                required property int index
                required property meetingRow row

                width: list.width
                height: city.height + bar.height + Theme.space1

                CityRow {
                    id: city

                    width: parent.width
                    implicitHeight: Scaled.px(40)
                    cities: root.meeting.cities
                    rowId: entry.row.rowId
                    isOwn: entry.row.isOwn
                    isFirst: entry.index === 1
                    title: entry.row.name
                    detail: entry.row.detail
                    figure: entry.row.time
                }
                HoursBar {
                    id: bar

                    x: Theme.space2
                    width: parent.width - 2 * x
                    anchors.top: city.bottom
                    height: 8
                    hours: entry.row.spans

                    Rectangle {
                        x: root.meeting.face.position / Math.max(1, root.meeting.face.positions - 1) * (parent.width - width)
                        y: -2
                        width: 2
                        height: parent.height + 4
                        radius: 1
                        color: entry.row.isWorking ? Theme.ink : Theme.ink3
                    }
                }
            }
        }
        Column {
            id: foot

            x: Theme.space4
            width: parent.width - 2 * Theme.space4
            anchors.bottom: parent.bottom
            anchors.bottomMargin: Theme.space3
            spacing: Theme.space2

            Section {
                SettingRow {
                    key: "meetingFromHour"
                    title: qsTr("Work begins at")
                    unit: qsTr("h")
                }
                SettingRow {
                    key: "meetingToHour"
                    title: qsTr("Work ends at")
                    unit: qsTr("h")
                }
            }
            Row {
                spacing: Theme.space2

                Button {
                    symbol: "doc.on.doc"
                    text: qsTr("Copy these times")
                    onClicked: root.copyAsked(root.meeting.proposal())
                }
                Button {
                    visible: root.meeting.face.best !== ""
                    text: root.meeting.face.best
                    label: qsTr("Go to the best time, %1").arg(root.meeting.face.best)
                    onClicked: root.meeting.goToBest()
                }
            }
        }
    }
}
