import QtQuick
import Ambrel.Context
import Ambrel.Kit
import Ambrel.Panels

// The gallery's groups below one another, each with its tiles in lines. Arrow keys walk through all of it; tiles exist
// only where they can be seen.
FocusScope {
    id: root

    required property GalleryModel gallery
    required property WidgetContext context
    // Nothing is shown before it is open, and nothing is kept after it.
    property bool isOpen: true
    // Of the tile that the pointer or the keyboard is on; empty when there is none.
    readonly property string about: lit ? lit.about : ""
    property GalleryItem lit: null
    readonly property rect view: Qt.rect(0, flick.contentY, flick.lineWidth, isOpen ? flick.height : 0)

    onViewChanged: gallery.look(view, Theme.textScale)

    function reveal(frame: rect) {
        const room = Theme.space3;
        flick.contentY = Math.max(0, Math.min(frame.y - room, Math.max(flick.contentY, frame.y + frame.height + room - flick.height)));
    }
    // Puts the keyboard on the tile of a widget, which comes into view.
    function focusOn(widget: string) {
        reveal(gallery.frameOf(widget));
        for (let i = 0; i < tiles.count; ++i) {
            const item = tiles.itemAt(i);
            if (item && item.objectName === widget)
                item.forceActiveFocus(Qt.TabFocusReason);
        }
    }
    function enter() {
        const first = gallery.stepped("", Qt.Key_Right);
        if (first !== "")
            focusOn(first);
    }

    Connections {
        target: Theme
        function onTextScaleChanged() {
            root.gallery.look(root.view, Theme.textScale);
        }
    }
    Connections {
        target: root.gallery
        function onQueryChanged() {
            flick.contentY = 0;
        }
    }
    WheelView {
        id: flick

        readonly property real side: Theme.space5
        readonly property real lineWidth: width - 2 * side

        anchors.fill: parent
        clip: true
        contentWidth: width
        contentHeight: root.gallery.height + Theme.space4

        Item {
            x: flick.side
            width: flick.lineWidth

            Repeater {
                model: root.gallery.headings

                Label {
                    required property string title
                    required property real headingY

                    y: headingY + Theme.space4
                    text: title
                    role: Theme.smallMedium
                    color: Theme.ink2
                    Accessible.role: Accessible.Heading
                }
            }
            Repeater {
                id: tiles

                model: root.gallery.rows

                GalleryItem {
                    id: tile

                    objectName: widget
                    context: root.context
                    onClicked: root.gallery.toggle(widget)
                    onHoveredChanged: {
                        if (hovered)
                            root.lit = tile;
                        else if (root.lit === tile)
                            root.lit = null;
                    }
                    onActiveFocusChanged: {
                        if (!activeFocus)
                            return;
                        root.lit = tile;
                        root.reveal(frame);
                    }
                    Keys.onPressed: event => {
                        if ([Qt.Key_Left, Qt.Key_Right, Qt.Key_Up, Qt.Key_Down].indexOf(event.key) < 0)
                            return;
                        root.focusOn(root.gallery.stepped(widget, event.key));
                        event.accepted = true;
                    }
                }
            }
        }
    }
    ScrollBar {
        view: flick
        anchors {
            right: parent.right
            top: parent.top
            bottom: parent.bottom
            margins: 2
        }
    }
    EmptyState {
        anchors.centerIn: parent
        visible: root.gallery.isEmpty && root.isOpen
        symbol: "magnifyingglass"
        title: qsTr("No widget found")
        sentence: qsTr("Titles and descriptions are searched. Try another word.")
    }
}
