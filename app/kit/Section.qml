import QtQuick
import Ambrel.Kit

// A card of settings rows, with rules between them.
Rectangle {
    id: root

    default property alias rows: column.data

    implicitWidth: 640
    implicitHeight: column.height
    radius: Theme.radiusCard
    color: Theme.card
    border.width: 1
    border.color: Theme.over(Theme.line, Theme.card)

    Column {
        id: column
        width: parent.width
    }
}
