import QtQuick
import Ambrel.Context
import Ambrel.Kit
import Ambrel.Panels

// A tile to begin with, as it is on the bar, and the mark that says whether it is there. A click toggles it.
Pressable {
    id: root

    required property startingTile row
    property WidgetContext context: null

    label: row.title
    tip: row.description
    accessibleRole: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: row.isOnBar
    width: [Theme.tileSmall, Theme.tileMedium, Theme.tileLarge, Theme.tileExtraLarge][row.span]
    height: Theme.tileHeight

    TileHost {
        anchors.fill: parent
        context: root.context
        widget: root.row.widget
        span: root.row.span
        isSample: true
        enabled: false
        Accessible.ignored: true
    }
    FocusRing {
        targetRadius: Theme.radiusTile
    }
    ChosenMark {
        x: parent.width - 14
        y: -6
        isChosen: root.row.isOnBar
        isHovered: root.hovered
    }
}
