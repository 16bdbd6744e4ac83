import QtQuick
import Ambrel.Kit

// One setting: its title, what it does, and the control that sets it, which is its child.
Item {
    id: root

    property string title
    property string detail
    property color detailColor: Theme.ink2
    // A search finds it by these as well.
    property string searchWords
    // A search has not found it.
    property bool isLeftOut: false
    default property alias control: slot.data

    width: parent ? parent.width : implicitWidth
    implicitWidth: 640
    implicitHeight: Math.max(52, words.height + 18, slot.height + 16)

    Binding {
        target: root
        property: "visible"
        value: false
        when: root.isLeftOut
    }
    // Rows that are not shown leave no rule behind, so each draws the one above it.
    Rectangle {
        visible: root.y > 0
        x: 1
        width: parent.width - 2
        height: 1
        color: Theme.over(Theme.line, Theme.card)
    }
    Column {
        id: words
        x: Theme.space4
        width: slot.x - x - Theme.space4
        anchors.verticalCenter: parent.verticalCenter

        TipLabel {
            width: parent.width
            text: root.title
            role: Theme.listName
            wrapMode: Text.WordWrap
            maximumLineCount: 2
        }
        Label {
            width: parent.width
            visible: root.detail !== ""
            text: root.detail
            role: Theme.subLine
            color: root.detailColor
            wrapMode: Text.WordWrap
        }
    }
    Row {
        id: slot
        spacing: Theme.space2
        anchors.right: parent.right
        anchors.rightMargin: Theme.space4
        anchors.verticalCenter: parent.verticalCenter
    }
}
