import QtQuick
import Ambrel.Context
import Ambrel.Dock

// The tiles of one family: a component for each of its widgets. A click on a tile is carried out by the context.
QtObject {
    required property WidgetContext context
    // Widget id to component.
    property var tiles: ({})
}
