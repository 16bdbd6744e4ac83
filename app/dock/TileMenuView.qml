import QtQuick
import Ambrel.Dock
import Ambrel.Kit
import Ambrel.Model

// What can be done with the tile of a slot.
Menu {
    id: root

    required property AppModel model
    // The slot, and its neighbours on the bar; "" at the ends.
    property string item
    property string previousItem
    property string nextItem
    // A command of the widget's own; "" when it has none.
    property string ownText
    property string ownSymbol
    property bool open: false
    // As of a Popover.
    property bool fades: true

    implicitWidth: Scaled.px(216)
    Accessible.name: qsTr("Menu of the tile")

    // As of a Popover.
    signal aboutToOpen
    signal customizeAsked
    signal commandChosen(string item)

    opacity: open || !fades ? 1 : 0
    onAboutToOpen: focusFirst()

    function move(target: string) {
        root.model.moveItem(root.item, target, root.model.activeProfileID);
        root.closeRequested();
    }

    MenuRow {
        visible: root.ownText !== ""
        height: visible ? implicitHeight : 0
        text: root.ownText
        symbol: root.ownSymbol
        onClicked: {
            root.closeRequested();
            root.commandChosen(root.item);
        }
    }
    MenuRule {
        visible: root.ownText !== ""
        height: visible ? implicitHeight : 0
    }
    MenuRow {
        text: qsTr("Move Back")
        symbol: "chevron.left"
        keys: qsTr("Ctrl ←")
        enabled: root.previousItem !== ""
        onClicked: root.move(root.previousItem)
    }
    MenuRow {
        text: qsTr("Move Forward")
        symbol: "chevron.right"
        keys: qsTr("Ctrl →")
        enabled: root.nextItem !== ""
        onClicked: root.move(root.nextItem)
    }
    MenuRow {
        text: qsTr("Customize Dock…")
        symbol: "square.grid.2x2"
        onClicked: {
            root.closeRequested();
            root.customizeAsked();
        }
    }
    MenuRule {}
    MenuRow {
        text: qsTr("Remove from Bar")
        symbol: "trash"
        isCareful: true
        onClicked: {
            root.model.removeItem(root.item, root.model.activeProfileID);
            root.closeRequested();
        }
    }
}
