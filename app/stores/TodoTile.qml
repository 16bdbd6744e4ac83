import QtQuick
import Ambrel.Kit
import Ambrel.Stores

// The first thing that is still to do.
ListTile {
    id: root

    required property EditedList todos
    readonly property int open: entries.face.count - entries.face.done

    entries: todos
    panel: Qt.resolvedUrl("TodoPanel.qml")
    emptyText: qsTr("Nothing to do")
    value: isSmall ? (isEmpty ? "" : open) : open === 0 ? (isEmpty ? emptyText : qsTr("All done")) : entries.face.first
    valueColor: isEmpty ? Theme.ink2 : open === 0 ? Theme.green.text : Theme.ink
    restText: open > 1 ? qsTr("and %1 more").arg(open - 1) : entries.face.done > 0 ? qsTr("%1 done").arg(entries.face.done) : ""
}
