import QtQuick
import Ambrel.Context
import Ambrel.Kit

// One widget of the gallery: its tile with an example, and the mark that says whether it is on the bar. A click toggles
// it; dragged to the bar it lands there.
Pressable {
    id: root

    required property WidgetContext context
    required property string widget
    required property string title
    required property string description
    required property string symbol
    required property string need
    required property rect frame
    required property int span
    required property bool isOnBar
    required property bool isAllowed
    // What is said of it at the foot of the panel.
    readonly property string about: description + "." + (need === "" ? "" : " " + need) + (isAllowed ? "" : " " + qsTr("Needs Tilebay Pro."))

    label: title
    Accessible.description: about
    looksHovered: cover.hovered
    accessibleRole: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: isOnBar
    x: frame.x
    y: frame.y
    width: frame.width
    height: frame.height

    TileHost {
        id: host

        anchors.fill: parent
        context: root.context
        widget: root.widget
        span: root.span
        isSample: true
        enabled: false
        Accessible.ignored: true
    }
    Loader {
        anchors.fill: parent
        active: host.tile === null
        enabled: false
        sourceComponent: GalleryCard {
            span: root.span
            title: root.title
            description: root.description
            symbol: root.symbol
            Accessible.ignored: true
        }
    }
    // What the tile would say and light up under the pointer is of the bar.
    Item {
        anchors.fill: parent

        HoverHandler {
            id: cover
            blocking: true
        }
    }
    Rectangle {
        anchors.fill: parent
        visible: root.hovered
        radius: Theme.radiusTile
        color: "transparent"
        border.width: 1
        border.color: Theme.over(Theme.lineStrong, Theme.tileHover)
    }
    // The mark is over the ring.
    FocusRing {
        targetRadius: Theme.radiusTile
    }
    ChosenMark {
        x: parent.width - 13
        y: -7
        isChosen: root.isOnBar
        isHovered: root.hovered
        isLocked: !root.isAllowed
    }
    DragHandler {
        target: null
        enabled: root.isAllowed || root.isOnBar
        grabPermissions: PointerHandler.CanTakeOverFromAnything
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad | PointerDevice.Stylus
        onActiveChanged: if (active)
            root.context.drag.begin(root, root.widget, "", root.span, centroid.pressPosition)
    }
}
