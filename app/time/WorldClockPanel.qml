import QtQuick
import Ambrel.Kit
import Ambrel.Time

// The time in the chosen cities: adding, ordering and removing them.
Popover {
    id: root

    required property WorldClockModel worldClock

    title: qsTr("World Clock")
    symbol: "globe"
    implicitHeight: Scaled.px(420)
    onAboutToOpen: chooser.start()

    CityChooser {
        id: chooser

        anchors.fill: parent
        focus: true
        cities: root.worldClock.cities

        EmptyState {
            anchors.centerIn: parent
            width: parent.width
            visible: list.count === 0
            symbol: "globe"
            title: qsTr("No cities yet")
            sentence: qsTr("Type the name of a city or a country above, and press Return.")
        }
        ListView {
            id: list

            anchors.fill: parent
            anchors.leftMargin: Theme.space2
            anchors.rightMargin: Theme.space2
            anchors.bottomMargin: Theme.space2
            clip: true
            model: root.worldClock.rows
            boundsBehavior: Flickable.StopAtBounds

            delegate: CityRow {
                required property int index
                required property cityTimeRow row

                width: list.width
                cities: root.worldClock.cities
                rowId: row.rowId
                isFirst: index === 0
                symbol: row.isNight ? "moon.fill" : "sun.max"
                title: row.name
                detail: row.country === "" ? row.detail : row.detail + " · " + row.country
                figure: row.time
            }
        }
    }
}
