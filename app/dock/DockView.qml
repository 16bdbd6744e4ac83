import QtQuick
import Ambrel.Context
import Ambrel.Dock
import Ambrel.Kit

// The bar: its slab, which slides over the edge of the screen, and the tiles on it.
FocusScope {
    id: root

    required property DockPanelController controller
    required property WidgetContext context
    readonly property bool isRow: controller.edge === "bottom"
    readonly property rect slabFrame: controller.slab
    // Without a compositor the ground that the slab leaves free would be black: the bar is there, or it is not.
    readonly property real offset: controller.isCompositing ? (1 - spring.value) * hiddenOffset : 0
    // How far the slab has to go to be beyond the edge.
    readonly property real hiddenOffset: isRow ? height - slabFrame.y : controller.edge === "left" ? -(slabFrame.x + slabFrame.width) : width - slabFrame.x

    Accessible.role: Accessible.ToolBar
    Accessible.name: qsTr("Tilebay")

    Keys.onEscapePressed: controller.leaveKeyboard()
    Keys.onPressed: event => {
        if (event.matches(StandardKey.Undo)) {
            root.context.model.undo();
            event.accepted = true;
            return;
        }
        const forwards = event.key === Qt.Key_Right || event.key === Qt.Key_Down;
        if (!forwards && event.key !== Qt.Key_Left && event.key !== Qt.Key_Up)
            return;
        const from = root.Window.activeFocusItem || root;
        const next = from.nextItemInFocusChain(forwards);
        if (next)
            next.forceActiveFocus(Qt.TabFocusReason);
        event.accepted = true;
    }

    PresenceSpring {
        id: spring

        isIn: root.controller.isContentShown
    }

    Item {
        id: slab

        x: root.slabFrame.x + (root.isRow ? 0 : root.offset)
        y: root.slabFrame.y + (root.isRow ? root.offset : 0)
        width: root.slabFrame.width
        height: root.slabFrame.height

        Shadow {
            visible: root.controller.isCompositing
            kind: "floating"
            radius: Theme.radiusBar
        }

        Rectangle {
            anchors.fill: parent
            radius: Theme.radiusBar
            color: root.controller.isCompositing ? Theme.bar : Qt.rgba(Theme.bar.r, Theme.bar.g, Theme.bar.b, 1)
            border.width: 1
            border.color: Theme.barLine
            antialiasing: true
        }

        WheelView {
            id: flick

            // The tiles that scroll are cut off where the round ends have not begun to close in on them yet.
            readonly property real inset: root.controller.isScrolling ? Theme.space1 : 0

            anchors.fill: parent
            anchors.margins: inset
            clip: root.controller.isScrolling
            notch: Theme.tileMedium + Theme.space2
            contentWidth: root.isRow ? root.controller.contentLength - 2 * inset : width
            contentHeight: root.isRow ? height : root.controller.contentLength - 2 * inset
            flickableDirection: root.isRow ? Flickable.HorizontalFlick : Flickable.VerticalFlick
            onContentXChanged: root.controller.scrollOffset = root.isRow ? contentX : contentY
            onContentYChanged: root.controller.scrollOffset = root.isRow ? contentX : contentY

            opacity: root.controller.isContentShown || !root.controller.isOnScreen || !root.controller.isCompositing ? 1 : 0

            Behavior on opacity {
                NumberAnimation {
                    duration: 100
                    easing.type: Easing.OutCubic
                }
            }

            Connections {
                target: root.controller
                function onScrollAsked(by: real) {
                    flick.scrollBy(by);
                }
            }

            // In the slab's measures, as the frames of the tiles are.
            Item {
                x: -flick.inset
                y: -flick.inset
                width: slab.width
                height: slab.height

                Repeater {
                    id: tiles

                    model: root.controller.tiles

                    DockTile {
                        context: root.context
                        count: tiles.count
                        isScrolling: root.controller.isScrolling
                        slides: root.controller.isContentShown && !Theme.reducedMotion
                        onRevealAsked: frame => {
                            if (root.isRow)
                                flick.contentX = Math.max(Math.min(flick.contentX, frame.x - Theme.space2), frame.x + frame.width + Theme.space2 - slab.width);
                            else
                                flick.contentY = Math.max(Math.min(flick.contentY, frame.y - Theme.space2), frame.y + frame.height + Theme.space2 - slab.height);
                        }
                    }
                }
            }
        }

        // A tile that is held has the pointer, and the others no tips.
        Item {
            anchors.fill: parent
            visible: root.context.drag.isActive

            HoverHandler {
                blocking: true
            }
        }
        EmptyBar {
            anchors.fill: parent
            visible: root.controller.isEmpty
            context: root.context
        }
    }
}
