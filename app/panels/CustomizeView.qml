import QtQuick
import Ambrel.Context
import Ambrel.Kit
import Ambrel.Model
import Ambrel.Panels

// The customise panel: the profiles at the left, the gallery of all widgets at the right.
Popover {
    id: root

    required property AppModel model
    required property GalleryModel gallery
    required property WidgetContext context
    readonly property string hint: qsTr("Drag a tile to the bar to place it. Click it to add or remove it.")

    // Its window is about to come.
    property bool isReady: false

    implicitWidth: Scaled.px(760)
    implicitHeight: Scaled.px(480)
    onAboutToOpen: isReady = true
    title: qsTr("Customize")
    symbol: "square.grid.2x2"
    headerHeight: 54
    hasFullRule: true
    onOpenChanged: {
        isReady = false;
        if (!open)
            search.text = "";
    }
    Keys.onPressed: event => {
        if (!event.matches(StandardKey.Undo))
            return;
        root.model.undo();
        event.accepted = true;
    }

    headerItems: Field {
        id: search
        width: Scaled.px(232)
        anchors.verticalCenter: parent.verticalCenter
        hint: qsTr("Search tiles")
        isSearch: true
        focus: true
        onTextChanged: root.gallery.query = text
        onUndoAsked: root.model.undo()
        Keys.onDownPressed: gallery.enter()
    }

    ProfileColumn {
        id: profiles
        width: Scaled.px(168)
        height: foot.y
        model: root.model
        onMenuWanted: row => menu.openFor(row)
    }
    Rectangle {
        x: profiles.width
        width: 1
        height: foot.y
        color: Theme.over(Theme.line, Theme.panel)
    }
    GalleryList {
        id: gallery
        x: profiles.width + 1
        width: parent.width - x
        height: foot.y
        gallery: root.gallery
        context: root.context
        isOpen: root.isReady || root.open || root.fades && root.opacity > 0
    }
    Item {
        id: foot
        y: parent.height - height
        width: parent.width
        height: Scaled.px(52)

        Rectangle {
            width: parent.width
            height: 1
            color: Theme.over(Theme.line, Theme.panel)
        }
        TipLabel {
            x: Theme.space4
            width: undo.x - x - Theme.space4
            anchors.verticalCenter: parent.verticalCenter
            text: gallery.about === "" ? root.hint : gallery.about
            role: Theme.small
            color: Theme.ink2
            wrapMode: Text.Wrap
            maximumLineCount: 2
        }
        Button {
            id: undo
            anchors.right: done.left
            anchors.rightMargin: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            kind: Button.Quiet
            text: qsTr("Undo")
            enabled: root.model.canUndo
            onClicked: root.model.undo()
        }
        Button {
            id: done
            anchors.right: parent.right
            anchors.rightMargin: Theme.space4
            anchors.verticalCenter: parent.verticalCenter
            kind: Button.Primary
            text: qsTr("Done")
            onClicked: root.closeRequested()
        }
    }
    ProfileMenu {
        id: menu
        anchors.fill: parent
        model: root.model
    }
}
