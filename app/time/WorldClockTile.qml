import QtQuick
import Ambrel.Kit
import Ambrel.Time

// The time in as many of the cities as there is room for.
TileFrame {
    id: root

    required property WorldClockModel worldClock
    readonly property int columns: Math.max(1, Math.min(worldClock.rows.count, isNarrow ? 1 : span === TileFrame.Large ? 2 : 3))
    readonly property bool isEmpty: worldClock.rows.count === 0

    panel: Qt.resolvedUrl("WorldClockPanel.qml")
    hasHeader: isEmpty && !isSmall
    label: title + ", " + (isEmpty ? subLine : worldClock.summary)
    tip: worldClock.summary
    value: isEmpty ? qsTr("No cities") : ""
    valueRole: Theme.rowTitle
    subLine: isEmpty ? qsTr("Click to add one") : ""

    Row {
        spacing: Theme.space2

        Repeater {
            model: root.worldClock.rows

            Column {
                id: column

                required property int index
                required property cityTimeRow row

                visible: index < root.columns
                width: (root.inner.width - (root.columns - 1) * Theme.space2) / root.columns

                Label {
                    width: parent.width
                    text: column.row.name
                    role: Theme.caption
                    color: Theme.ink2
                    horizontalAlignment: root.isSmall ? Text.AlignHCenter : Text.AlignLeft
                    Accessible.ignored: true
                }
                TickingText {
                    width: parent.width
                    height: Theme.value.line
                    room: width
                    text: column.row.time
                    font: root.columns > 1 || root.isSmall ? Theme.rowTitle.font : Theme.clock.font
                    color: Theme.ink
                    alignment: root.isSmall ? Qt.AlignHCenter : Qt.AlignLeft
                }
                Label {
                    width: parent.width
                    text: column.row.day === "" ? column.row.difference : root.columns === 1 && !root.isSmall ? column.row.detail : column.row.day
                    role: Theme.subLine
                    color: Theme.ink2
                    horizontalAlignment: root.isSmall ? Text.AlignHCenter : Text.AlignLeft
                    Accessible.ignored: true
                }
            }
        }
    }
}
