import QtQuick
import Ambrel.Kit
import Ambrel.Stores

// A tile of a list: the name of its first entry, and a line on the others.
TileFrame {
    id: root

    required property EditedList entries
    property string emptyText
    property string restText
    readonly property bool isEmpty: entries.face.count === 0

    value: isSmall ? (isEmpty ? "" : entries.face.count) : isEmpty ? emptyText : entries.face.first
    valueRole: Theme.rowTitle
    valueColor: isEmpty ? Theme.ink2 : Theme.ink
    subLine: entries.face.problem !== "" ? qsTr("Not saved") : isEmpty ? qsTr("Click to add one") : restText
    tip: isEmpty ? "" : label
}
