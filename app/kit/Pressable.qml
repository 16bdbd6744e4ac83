import QtQuick
import Ambrel.Kit

// What every control is made of: pressed by a pointer, by Space or by Return, reached by Tab. A click does not take
// the keyboard's focus, so that the focus ring shows for the keyboard alone.
Item {
    id: root

    property string label
    property string tip
    property string tipKeys
    readonly property bool hovered: hover.hovered || looksHovered
    readonly property bool down: tap.pressed || keyDown || looksDown
    property bool keyDown: false
    // To show a state without a pointer.
    property bool looksHovered: false
    property bool looksDown: false
    property int accessibleRole: Accessible.Button
    // False for what is only read: keys reach it, and nobody is offered a press.
    property bool isPressable: true

    signal clicked

    function press() {
        if (root.enabled && root.isPressable)
            root.clicked();
    }
    // What is connected is an action of its own for screen readers. It may change before the item is complete.
    function offerPress() {
        root.Accessible.pressAction.disconnect(root.press);
        if (root.isPressable)
            root.Accessible.pressAction.connect(root.press);
    }

    activeFocusOnTab: enabled
    Accessible.role: root.accessibleRole
    Accessible.name: root.label
    Accessible.description: root.tip === root.label ? "" : root.tip
    Accessible.focusable: true

    Keys.onPressed: event => {
        if (!root.isPressable || event.key !== Qt.Key_Space && event.key !== Qt.Key_Return && event.key !== Qt.Key_Enter)
            return;
        if (!event.isAutoRepeat)
            root.keyDown = true;
        event.accepted = true;
    }
    Keys.onReleased: event => {
        if (event.isAutoRepeat || !root.keyDown)
            return;
        root.keyDown = false;
        event.accepted = true;
        root.press();
    }
    onActiveFocusChanged: keyDown = false
    onIsPressableChanged: offerPress()
    Component.onCompleted: offerPress()

    onHoveredChanged: {
        if (root.tip === "")
            return;
        if (root.hovered)
            Tips.enter(root, root.tip, root.tipKeys);
        else
            Tips.leave(root);
    }
    onDownChanged: if (root.down)
        Tips.leave(root)

    HoverHandler {
        id: hover
    }

    TapHandler {
        id: tap
        enabled: root.isPressable
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: root.press()
    }
}
