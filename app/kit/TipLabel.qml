import QtQuick
import Ambrel.Kit

// A label for a text of any length: what does not fit is in its tip.
Label {
    id: root

    HoverHandler {
        enabled: root.truncated
        onHoveredChanged: hovered ? Tips.enter(root, root.text) : Tips.leave(root)
    }
}
