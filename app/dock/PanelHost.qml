import QtQuick
import Ambrel.Base
import Ambrel.Dock

// Puts what a panel shows where the panel stands in its window. The content is a Popover: it moves in and out by
// its `open`, and asks to be closed.
FocusScope {
    id: root

    required property PanelWindow window
    required property Presentation presentation
    required property url contentSource
    required property var contentProperties
    readonly property Item content: loader.item as Item

    focus: true

    Loader {
        id: loader

        x: root.window.panelRect.x
        y: root.window.panelRect.y
        width: root.window.panelRect.width
        height: root.window.panelRect.height
        focus: true
        onLoaded: {
            // What the panel would have the keyboard on gets it.
            item.focus = true;
            item.open = Qt.binding(() => root.presentation.isContentShown);
        }
        // Closed at first, so that it does not come in before the window is there.
        Component.onCompleted: setSource(root.contentSource, Object.assign({
            open: false
        }, root.contentProperties))
    }

    Connections {
        target: loader.item
        ignoreUnknownSignals: true

        function onCloseRequested() {
            root.presentation.dismiss();
        }
    }
}
