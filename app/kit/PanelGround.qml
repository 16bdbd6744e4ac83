import QtQuick
import Ambrel.Kit

// The opaque ground of panels, menus and tips with its inner line and its shadow.
Rectangle {
    id: root

    property string shadow: "raised"

    radius: Theme.radiusPanel
    color: Theme.panel
    border.width: 1
    border.color: Theme.over(Theme.line, Theme.panel)

    Shadow {
        kind: root.shadow
        radius: root.radius
    }
}
