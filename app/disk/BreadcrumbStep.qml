import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// One step of the breadcrumb; the last one is the current folder.
Pressable {
    id: root

    required property int index
    required property diskPart row
    property bool isLast: false
    property real maximumWidth: 200

    label: row.name
    accessibleRole: isLast ? Accessible.StaticText : Accessible.Link
    activeFocusOnTab: !isLast
    enabled: !isLast
    implicitWidth: (index > 0 ? arrow.width : 0) + word.width + 8

    Symbol {
        id: arrow

        visible: root.index > 0
        anchors.verticalCenter: parent.verticalCenter
        name: "chevron.right"
        size: 18
        color: Theme.ink3
    }
    TipLabel {
        id: word

        x: (root.index > 0 ? arrow.width : 0) + 4
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(Math.ceil(implicitWidth), root.maximumWidth)
        text: root.row.name
        role: root.isLast ? Theme.rowTitle : Theme.body
        color: root.isLast || root.hovered ? Theme.ink : Theme.ink2
        Accessible.ignored: true
    }
    FocusRing {
        anchors.topMargin: 2
        anchors.bottomMargin: 2
        targetRadius: Theme.radiusHighlight
    }
}
