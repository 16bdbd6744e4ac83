import QtQuick
import Ambrel.Kit

// The caption of a tile: symbol, name and, at the right edge, one fact such as an age.
Item {
    id: root

    property string symbol
    property string name
    property string fact
    property bool isStale: false
    readonly property bool isElided: title.truncated || note.truncated

    implicitHeight: Theme.caption.line
    implicitWidth: icon.width + 4 + Math.ceil(title.implicitWidth) + (fact === "" ? 0 : Theme.space2 + note.implicitWidth)

    Symbol {
        id: icon
        name: root.symbol
        size: root.symbol === "" ? 0 : 14
        color: Theme.ink2
        anchors.verticalCenter: parent.verticalCenter
    }
    Label {
        id: title
        text: root.name
        role: Theme.caption
        color: Theme.ink2
        anchors.left: icon.right
        anchors.leftMargin: root.symbol === "" ? 0 : 4
        width: Math.min(Math.ceil(implicitWidth), root.width - x - (note.visible ? note.width + Theme.space1 : 0)
                        - (clock.visible ? clock.width + Theme.space1 : 0))
        Accessible.ignored: true
    }
    Label {
        id: note
        text: root.fact
        visible: root.fact !== "" && !root.isStale
        role: Theme.subLine
        color: Theme.ink2
        anchors.right: parent.right
        width: Math.min(Math.ceil(implicitWidth), root.width * 0.55)
        Accessible.ignored: true
    }
    Symbol {
        id: clock
        name: "clock.arrow.circlepath"
        visible: root.isStale
        size: 14
        color: Theme.orange.text
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
    }
}
