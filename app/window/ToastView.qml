import QtQuick
import Ambrel.Window
import Ambrel.Kit

// The toast in its window. It goes by itself; the controller then takes the window away.
Item {
    id: root

    required property PanelWindow window
    required property ToastController controller
    readonly property alias toast: toast

    function present(title: string, detail: string, symbol: string, action: string) {
        toast.show(title, detail, symbol, action);
    }
    function dismiss() {
        toast.hide();
    }

    Toast {
        id: toast

        fades: root.window.fades
        x: root.window.panelRect.x
        y: root.window.panelRect.y
        // Its texts are laid out when it is next drawn.
        onImplicitWidthChanged: root.controller.place()
        onImplicitHeightChanged: root.controller.place()
        onClosed: root.controller.close()
        onActionChosen: root.controller.act()
    }
}
