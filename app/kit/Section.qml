import QtQuick
import Ambrel.Kit

// A card of settings rows, with rules between them.
Rectangle {
    id: root

    default property alias rows: column.data
    // A search has found none of its rows.
    property bool isLeftOut: false

    width: parent ? parent.width : implicitWidth
    implicitWidth: 640
    implicitHeight: column.height
    radius: Theme.radiusCard
    color: Theme.card
    border.width: 1
    border.color: Theme.over(Theme.line, Theme.card)

    Binding {
        target: root
        property: "visible"
        value: false
        when: root.isLeftOut
    }
    Column {
        id: column
        width: parent.width
    }
}
