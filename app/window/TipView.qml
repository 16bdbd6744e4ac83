import QtQuick
import Ambrel.Window
import Ambrel.Kit

// The tip that is wanted at this moment.
Item {
    id: root

    required property PanelWindow window
    readonly property alias tip: tip

    Tip {
        id: tip

        x: root.window.panelRect.x
        y: root.window.panelRect.y
        text: Tips.text
        keys: Tips.keys
    }
}
