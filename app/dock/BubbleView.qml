import QtQuick
import Ambrel.Base
import Ambrel.Buddy
import Ambrel.Dock
import Ambrel.Window

// The bubble in its window.
Item {
    id: root

    required property PanelWindow window
    required property BubbleController controller
    required property BuddyNoticeCenter center
    required property Presentation presentation
    readonly property alias panel: panel

    BuddyBubbleLayout {
        id: panel

        fades: root.window.fades
        x: root.window.panelRect.x
        y: root.window.panelRect.y
        width: root.window.panelRect.width
        height: root.window.panelRect.height
        center: root.center
        open: root.presentation.isContentShown
        tailSide: root.controller.tailSide
        tailAt: root.controller.tailAt
        // The text or its size has changed.
        onPanelHeightChanged: root.controller.place()
    }
}
