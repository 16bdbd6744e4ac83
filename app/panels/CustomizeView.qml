import QtQuick
import Ambrel.Kit
import Ambrel.Model
import Ambrel.Panels

// The customise panel: the profiles at the left, the gallery of all widgets at the right.
Popover {
    id: root

    required property AppModel model
    required property GalleryModel gallery
    // Makes a tile for { widget, span }; without one, the gallery shows cards with symbol and title.
    property Component tilePreview: null
    property string hint: qsTr("Click a tile to put it on the bar or to take it off.")

    implicitWidth: 760
    implicitHeight: 480
    title: qsTr("Customize")
    symbol: "square.grid.2x2"
    headerHeight: 54
    hasFullRule: true
    onOpenChanged: if (!open)
        search.text = ""

    headerItems: Field {
        id: search
        width: 232
        anchors.verticalCenter: parent.verticalCenter
        hint: qsTr("Search widgets")
        isSearch: true
        focus: true
        onTextChanged: root.gallery.query = text
    }

    ProfileColumn {
        id: profiles
        width: 168
        height: foot.y
        model: root.model
    }
    Rectangle {
        x: profiles.width
        width: 1
        height: foot.y
        color: Theme.over(Theme.line, Theme.panel)
    }
    GalleryList {
        x: profiles.width + 1
        width: parent.width - x
        height: foot.y
        gallery: root.gallery
        preview: root.tilePreview
    }
    Item {
        id: foot
        y: parent.height - height
        width: parent.width
        height: 52

        Rectangle {
            width: parent.width
            height: 1
            color: Theme.over(Theme.line, Theme.panel)
        }
        TipLabel {
            x: Theme.space4
            width: done.x - x - Theme.space4
            anchors.verticalCenter: parent.verticalCenter
            text: root.hint
            role: Theme.small
            color: Theme.ink2
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
}
