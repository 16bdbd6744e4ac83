import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit
import Ambrel.Shelf

// Popups over the cards: menus, the preview, dialogs. One at a time; Escape and a click outside close it.
FocusScope {
    id: root

    required property ClipboardModel clipboard
    // The clip of the menu, of the preview or for the new collection.
    property string clipId
    property string collectionId
    property point place
    // One of the components below; each has isCentred, hangsLeft and a function `begin` that sets the focus.
    readonly property var content: loader.item

    signal picked(string id)
    signal textPicked(string id)
    signal settingsAsked
    signal closed

    function openMenu(x: real, y: real) {
        place = Qt.point(x, y - root.y);
        show(menu);
    }
    function openClipMenu(id: string, x: real, y: real) {
        clipId = id;
        place = Qt.point(x, y - root.y);
        show(clipMenu);
    }
    function openPreview(id: string) {
        clipId = id;
        if (id !== "")
            show(preview);
    }
    function show(component: Component) {
        loader.sourceComponent = undefined;
        loader.sourceComponent = component;
        root.content.begin();
    }
    function close() {
        if (!visible)
            return;
        loader.sourceComponent = undefined;
        root.closed();
    }
    // Keeps the popup inside the shelf.
    function settle() {
        if (!content)
            return;
        const x = content.isCentred ? (root.width - loader.width) / 2 : root.place.x - (content.hangsLeft ? loader.width : 0);
        const y = content.isCentred ? (root.height - loader.height) / 2 : root.place.y;
        loader.x = Math.round(Math.max(Theme.space2, Math.min(x, root.width - loader.width - Theme.space2)));
        loader.y = Math.round(Math.max(Theme.space1, Math.min(y, root.height - loader.height - Theme.space2)));
    }

    visible: loader.status === Loader.Ready
    Keys.onEscapePressed: root.close()
    // Keys must not reach the cards below.
    Keys.onPressed: event => event.accepted = true

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        onPressed: root.close()
        onWheel: wheel => wheel.accepted = true
    }
    Loader {
        id: loader

        focus: true
        onLoaded: root.settle()
        onWidthChanged: root.settle()
        onHeightChanged: root.settle()
    }

    Component {
        id: menu

        ShelfMenu {
            clipboard: root.clipboard
            onCloseRequested: root.close()
            onCleanupAsked: root.show(cleanup)
            onNameAsked: {
                root.clipId = "";
                root.collectionId = "";
                root.show(name);
            }
            onRenameAsked: id => {
                root.collectionId = id;
                root.show(name);
            }
            onClearAsked: root.show(question)
            onSettingsAsked: root.settingsAsked()
        }
    }
    Component {
        id: cleanup

        CleanupMenu {
            clipboard: root.clipboard
            onCloseRequested: root.close()
        }
    }
    Component {
        id: clipMenu

        ClipMenu {
            clipboard: root.clipboard
            clipId: root.clipId
            onCloseRequested: root.close()
            onPicked: root.picked(root.clipId)
            onTextPicked: root.textPicked(root.clipId)
            onPreviewAsked: root.show(preview)
            onCollectionsAsked: root.show(collections)
        }
    }
    Component {
        id: collections

        CollectionMenu {
            clipboard: root.clipboard
            clipId: root.clipId
            onCloseRequested: root.close()
            onNameAsked: {
                root.collectionId = "";
                root.show(name);
            }
        }
    }
    Component {
        id: name

        NameDialog {
            clipboard: root.clipboard
            clipId: root.clipId
            collectionId: root.collectionId
            onCloseRequested: root.close()
        }
    }
    Component {
        id: question

        ShelfDialog {
            title: qsTr("Clear clipboard history?")
            sentence: qsTr("Pinned items and items in collections stay.")
            action: qsTr("Clear")
            isCareful: true
            onCloseRequested: root.close()
            onAccepted: {
                root.clipboard.clearHistory();
                root.close();
            }
        }
    }
    Component {
        id: preview

        ClipPreview {
            clipboard: root.clipboard
            clipId: root.clipId
            width: root.width - 2 * Theme.space6
            height: root.height - 2 * Theme.space3
            onCloseRequested: root.close()
            onPicked: root.picked(root.clipId)
            onTextPicked: root.textPicked(root.clipId)
        }
    }
}
