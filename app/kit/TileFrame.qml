import QtQuick
import Ambrel.Kit

// A tile of the bar: its ground, its states and its rows. A tile of text needs its properties alone; what else it
// shows, a sparkline or a ring, goes into it as children, on the padded area.
Pressable {
    id: root

    enum Span {
        Small,
        Medium,
        Large,
        ExtraLarge
    }

    // The widget's id and what the catalogue says of it; the bar sets them.
    property string widget
    property string title
    property string shortTitle: title
    property string description
    property string widgetSymbol
    property string symbol: widgetSymbol
    property int span: TileFrame.Medium
    readonly property bool isSmall: span === TileFrame.Small
    readonly property bool isMedium: span === TileFrame.Medium
    readonly property bool isNarrow: isSmall || isMedium
    readonly property bool isWide: !isNarrow
    readonly property string caption: isNarrow ? shortTitle : title
    property string name: caption
    // Whether the tile is visible on the screen.
    property bool live: false

    // What a click opens, and what the settings of the tile are: `Qt.resolvedUrl("WaterPanel.qml")`. A panel takes its
    // models from the tile's area by their names, and what `panelProperties` adds. A tile that has neither answers
    // `activated`.
    property url panel
    property url settingsPanel
    property var panelProperties: ({})
    // A command of its own in the tile's menu.
    property string menuText
    property string menuSymbol
    // Where it is on the bar, "2 of 10"; for screen readers.
    property string place
    // Its keys are for a button elsewhere, which has the ring.
    property bool leadsElsewhere: false
    // Needs a licence that is not there.
    property bool isLocked: false

    // At the right edge of the caption, such as an age.
    property string fact
    property string value
    property string unit
    // The widest value to come, for figures that tick.
    property string widestValue
    property TextRole valueRole: Theme.value
    property color valueColor: Theme.ink
    property string subLine
    // Free space at the right of value and sub-line, for a child to use.
    property real reserved: 0
    property bool hasHeader: !isSmall
    property bool hasCaptionSymbol: true
    // Why there is nothing to show, in words; empty when there is.
    property string problem
    // How old what is shown is, in words; empty when it is fresh.
    property string staleSince
    readonly property bool isUnavailable: problem !== ""
    readonly property bool isStale: staleSince !== "" && !isUnavailable
    readonly property real markOpacity: isStale ? 0.5 : 1
    readonly property color figureColor: isStale ? Theme.ink2 : Theme.ink
    // Where the value and the sub-line are in the area, for what takes their place.
    readonly property real valueTop: Theme.caption.line
    readonly property real subLineTop: Theme.caption.line + Theme.value.line
    readonly property alias inner: area
    default property alias content: area.data

    signal menuRequested(real x, real y)
    signal activated
    signal panelAsked
    signal settingsAsked
    signal unlockAsked
    signal menuChosen
    // A text for the clipboard.
    signal copyAsked(string text)

    // The tip without what the label ends with.
    function unsaid(): string {
        const end = tip.indexOf("\n");
        const first = end < 0 ? tip : tip.slice(0, end);
        return !label.endsWith(first) ? tip : end < 0 ? "" : tip.slice(end + 1);
    }

    onClicked: {
        if (isLocked)
            unlockAsked();
        else if (String(panel) !== "")
            panelAsked();
        else
            activated();
    }

    readonly property string spoken: {
        let text = name;
        if (isUnavailable)
            return text + ", " + qsTr("Not available") + ", " + problem;
        for (const part of [value, unit, subLine, staleSince])
            if (part !== "")
                text += (part === unit ? " " : ", ") + part;
        return text;
    }
    property bool areRowsElided: false

    accessibleRole: isPressable ? Accessible.Button : Accessible.StaticText
    label: spoken
    tip: areRowsElided || header.isElided ? spoken : ""
    Accessible.description: {
        const more = unsaid();
        return more === "" ? place : place === "" ? more : more + "\n" + place;
    }
    width: implicitWidth
    height: implicitHeight
    implicitHeight: Theme.tileHeight
    implicitWidth: isSmall ? Theme.tileSmall : span === TileFrame.Medium ? Theme.tileMedium : span === TileFrame.Large ? Theme.tileLarge : Theme.tileExtraLarge
    scale: down ? Theme.pressScale : 1

    Keys.onPressed: event => {
        if (event.key === Qt.Key_F10 || event.key === Qt.Key_Menu) {
            root.menuRequested(root.width / 2, 0);
            event.accepted = true;
        }
    }

    Behavior on scale {
        NumberAnimation {
            duration: root.down ? Theme.pressDuration : Theme.releaseDuration
            easing.type: Easing.OutCubic
        }
    }

    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: eventPoint => root.menuRequested(eventPoint.position.x, eventPoint.position.y)
    }

    Rectangle {
        id: ground
        anchors.fill: parent
        radius: Theme.radiusTile
        color: root.down ? Theme.tilePressed : root.hovered ? Theme.tileHover : Theme.tile
        border.width: 1
        border.color: Theme.over(root.hovered ? Theme.lineStrong : Theme.line, ground.color)

        Behavior on color {
            ColorAnimation {
                duration: Theme.hoverDuration
                easing.type: Easing.OutCubic
            }
        }
    }

    CardHeader {
        id: header
        visible: root.hasHeader
        anchors {
            left: area.left
            right: area.right
            top: area.top
        }
        symbol: root.hasCaptionSymbol ? root.symbol : ""
        name: root.name
        fact: root.isUnavailable ? "" : root.fact
        isStale: root.isStale
    }

    Loader {
        id: rows
        anchors.fill: area
        active: root.isUnavailable || root.value !== "" || root.subLine !== ""
        sourceComponent: TileRows {
            isSmall: root.isSmall
            symbol: root.symbol
            name: root.name
            value: root.value
            unit: root.unit
            widestValue: root.widestValue
            valueRole: root.valueRole
            valueColor: root.valueColor
            subLine: root.subLine
            problem: root.problem
            staleSince: root.isStale ? root.staleSince : ""
            reserved: root.reserved
            onIsElidedChanged: root.areRowsElided = isElided
            Component.onDestruction: root.areRowsElided = false
        }
    }

    Item {
        id: area
        visible: !root.isUnavailable
        anchors {
            fill: parent
            leftMargin: root.isSmall ? Theme.space1 : Theme.space3
            rightMargin: anchors.leftMargin
            topMargin: Math.round((parent.height - Theme.caption.line * 2 - Theme.value.line) / 2) - (root.isSmall ? 2 : 0)
            bottomMargin: anchors.topMargin
        }
    }

    FocusRing {
        shown: root.activeFocus && !root.leadsElsewhere
        targetRadius: Theme.radiusTile
    }
}
