import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit
import Ambrel.Shelf

// The filters: all clips, pinned clips, one kind, or one collection. They scroll if they do not fit.
Item {
    id: root

    required property ClipboardModel clipboard
    readonly property var kinds: [
        { filter: "all", title: qsTr("All") },
        { filter: "pinned", title: qsTr("Pinned") },
        { filter: "kind:text", title: qsTr("Text") },
        { filter: "kind:link", title: qsTr("Links") },
        { filter: "kind:color", title: qsTr("Colors") },
        { filter: "kind:image", title: qsTr("Images") },
        { filter: "kind:file", title: qsTr("Files") }
    ]

    function reveal(chip: Item) {
        const left = chip.x, right = chip.x + chip.width;
        if (left - 8 < flick.contentX)
            flick.contentX = Math.max(0, left - 8);
        else if (right + 8 > flick.contentX + flick.width)
            flick.contentX = Math.max(0, Math.min(flick.contentWidth - flick.width, right + 8 - flick.width));
    }

    implicitHeight: row.height + 2 * row.y
    height: implicitHeight

    Flickable {
        id: flick

        anchors.fill: parent
        clip: contentWidth > width
        contentWidth: row.x + row.width + 6
        contentHeight: height
        flickableDirection: Flickable.HorizontalFlick
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentWidth > width

        WheelHandler {
            enabled: flick.interactive
            onWheel: event => flick.contentX = Math.max(0, Math.min(flick.contentWidth - flick.width, flick.contentX - (event.angleDelta.y + event.angleDelta.x) / 2))
        }

        Row {
            id: row

            // Room for the focus ring.
            x: 6
            y: 6
            spacing: Theme.space2
            Accessible.role: Accessible.Grouping
            Accessible.name: qsTr("Show")

            Repeater {
                model: root.kinds

                Chip {
                    id: chip

                    required property var modelData

                    text: modelData.title
                    isChosen: root.clipboard.filter === modelData.filter
                    onClicked: root.clipboard.filter = modelData.filter
                    onActiveFocusChanged: if (activeFocus)
                        root.reveal(chip)
                }
            }
            Rectangle {
                visible: collections.count > 0
                width: 1
                height: 16
                // Translucent: between two pixels an opaque one would leave a hole in the shelf.
                color: Theme.lineStrong
                anchors.verticalCenter: parent.verticalCenter
            }
            Repeater {
                id: collections

                model: root.clipboard.collections

                Chip {
                    id: collection

                    required property string collectionId
                    required property string name

                    text: name
                    symbol: "folder.fill"
                    isChosen: root.clipboard.filter === "collection:" + collectionId
                    onClicked: root.clipboard.filter = "collection:" + collectionId
                    onActiveFocusChanged: if (activeFocus)
                        root.reveal(collection)
                }
            }
        }
    }
}
