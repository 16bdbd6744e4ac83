import QtQuick
import Ambrel.Kit

// The body of a panel: ground, header and content. The window around it leaves `shadowMargin` free on each side and
// places it; Escape and the close button ask to be closed. It rises and fades in when `open` turns true.
FocusScope {
    id: root

    property string title
    property string symbol
    // At the right of the title.
    property string fact
    property bool open: true
    // False where nothing below shows through: it is then whole from the first moment to the last.
    property bool fades: true
    property bool hasHeader: true
    property bool hasFullRule: false
    // It grows with the text.
    property int headerHeight: 48
    property int radius: Theme.radiusPanel
    // What the panel is as tall as, with so much below it. One whose content scrolls says its own height.
    property Item fitted: null
    property real footHeight: 0
    readonly property real fittedHeight: fitted ? Math.ceil(header.height + fitted.y + fitted.height + footHeight) + Theme.space4 + 2 : 0
    readonly property int shadowMargin: 48
    // 0 while closed, 1 while open, between them while it moves; a little more where the spring swings over.
    readonly property real presence: spring.value
    readonly property bool isSettled: presence === (open ? 1 : 0)
    readonly property alias header: header
    property alias headerItems: header.trailing
    default property alias content: body.data

    // Its window comes next, and with it the user's first key: what it shows is made ready here, and not when `open` turns
    // true, by when the user may have typed.
    signal aboutToOpen
    signal closeRequested

    // Of a tile's panel; larger ones say their own.
    implicitWidth: Scaled.px(340)
    implicitHeight: fittedHeight
    Accessible.role: Accessible.Dialog
    Accessible.name: title
    opacity: !fades ? 1 : open ? spring.opacity : 0
    visible: open || opacity > 0
    Keys.onEscapePressed: root.closeRequested()

    PresenceSpring {
        id: spring

        isIn: root.open
    }
    Behavior on opacity {
        enabled: root.fades && !root.open

        NumberAnimation {
            duration: 100
            easing.type: Easing.OutCubic
        }
    }
    transform: Translate {
        y: root.fades ? (1 - root.presence) * Theme.travel : 0
    }

    PanelGround {
        anchors.fill: parent
        radius: root.radius
    }

    // A click on the panel must not fall through to what is below it.
    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
    }

    PanelHeader {
        id: header
        visible: root.hasHeader
        height: root.hasHeader ? Scaled.px(root.headerHeight) : 0
        width: parent.width
        title: root.title
        symbol: root.symbol
        fact: root.fact
        hasFullRule: root.hasFullRule
        onCloseRequested: root.closeRequested()
    }

    Item {
        id: body
        anchors {
            left: parent.left
            right: parent.right
            top: header.bottom
            bottom: parent.bottom
            margins: 1
        }
    }
}
