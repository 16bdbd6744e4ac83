import QtQuick
import Ambrel.Base
import Ambrel.Context
import Ambrel.Dock
import Ambrel.Window

// Puts what a panel shows at the panel's place in its window, and carries out what it asks for. The content is a
// Popover or a menu: it moves in and out by its `open`, and asks to be closed.
FocusScope {
    id: root

    required property PanelWindow window
    required property Presentation presentation
    required property WidgetContext context
    required property Item content
    // Untyped: the lint does not know what windows of the toolkit are.
    readonly property var namedWindow: window

    focus: true

    FocusScope {
        id: place

        x: root.window.panelRect.x
        y: root.window.panelRect.y
        width: root.window.panelRect.width
        height: root.window.panelRect.height
        focus: true
        data: root.content ? [root.content] : []
    }
    // For lists of windows, and for screen readers.
    Binding {
        target: root.namedWindow
        property: "title"
        value: root.content ? root.content.Accessible.name : ""
    }
    Binding {
        target: root.content
        property: "width"
        value: place.width
    }
    Binding {
        target: root.content
        property: "height"
        value: place.height
    }
    Binding {
        target: root.content
        property: "open"
        value: root.presentation.isContentShown
    }
    Binding {
        target: root.content
        property: "fades"
        value: root.window.fades
    }
    // What the panel would have the keyboard on gets it.
    Binding {
        target: root.content
        property: "focus"
        value: true
    }

    Connections {
        target: root.content
        ignoreUnknownSignals: true

        function onCloseRequested() {
            root.presentation.dismiss();
        }
        function onAsk(question: string) {
            root.context.askBuddy(question);
        }
        function onCopyAsked(text: string) {
            root.context.copyText(text);
        }
        function onCustomizeAsked() {
            root.context.openCustomize();
        }
        function onSettingsAsked(tab: string) {
            root.context.openSettings(tab);
        }
        function onPurchaseAsked() {
            root.context.openPurchasePage();
        }
        function onFinished() {
            root.context.finishWelcome();
        }
        function onTabChosen(tab: string) {
            root.context.chooseSettingsTab(tab);
        }
        function onCommandChosen(item: string) {
            root.context.menuCommandChosen(item);
        }
    }
}
