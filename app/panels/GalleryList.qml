import QtQuick
import Ambrel.Kit
import Ambrel.Panels

// The gallery's groups below one another, each with its tiles flowing from left to right.
FocusScope {
    id: root

    required property GalleryModel gallery
    property Component preview: null

    function reveal(item: Item) {
        const top = item.mapToItem(list.contentItem, 0, -12).y;
        const bottom = top + item.height + 24;
        if (top < list.contentY)
            list.contentY = Math.max(list.originY, top);
        else if (bottom > list.contentY + list.height)
            list.contentY = bottom - list.height;
    }

    ListView {
        id: list
        anchors.fill: parent
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        cacheBuffer: 200
        model: root.gallery.groups

        delegate: Item {
            id: group

            required property GalleryGroup modelData

            width: list.width
            height: modelData.rows.count === 0 ? 0 : tiles.y + tiles.height + Theme.space4
            visible: modelData.rows.count > 0

            Label {
                id: head
                x: Theme.space5
                y: Theme.space4
                text: group.modelData.title
                role: Theme.smallMedium
                color: Theme.ink2
                Accessible.role: Accessible.Heading
            }
            Flow {
                id: tiles
                anchors {
                    left: head.left
                    right: parent.right
                    rightMargin: Theme.space5
                    top: head.bottom
                    topMargin: Theme.space3
                }
                spacing: Theme.space3

                Repeater {
                    model: group.modelData.rows

                    GalleryItem {
                        preview: root.preview
                        onClicked: root.gallery.toggle(widget)
                        onActiveFocusChanged: if (activeFocus)
                            root.reveal(this)
                    }
                }
            }
        }
    }
    ScrollBar {
        view: list
        anchors {
            right: parent.right
            top: parent.top
            bottom: parent.bottom
            margins: 2
        }
    }
    EmptyState {
        anchors.centerIn: parent
        visible: root.gallery.isEmpty
        symbol: "magnifyingglass"
        title: qsTr("No widget found")
        sentence: qsTr("Titles and descriptions are searched. Try another word.")
    }
}
