import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit
import Ambrel.Shelf

// One clip. A click copies it; it can be dragged to other programs.
Item {
    id: root

    required property ClipboardModel clipboard
    required property clipFace face
    property bool isUnderKeyboard: false
    // A secret is shown; hovering reveals it, too.
    property bool isRevealed: false

    readonly property bool isHovered: hover.hovered
    // How wide a card of each look is, and what it shows.
    readonly property var looks: ({
            text: { width: 148, symbol: "text.alignleft", body: textBody },
            code: { width: 156, symbol: "chevron.left.forwardslash.chevron.right", body: codeBody },
            link: { width: 136, symbol: "link", body: linkBody },
            color: { width: 96, symbol: "paintpalette", body: colorBody },
            image: { width: 124, symbol: "photo", body: pictureBody },
            files: { width: 120, symbol: "doc", body: filesBody },
            secret: { width: 120, symbol: "lock.fill", body: secretBody },
            lost: { width: 148, symbol: "exclamationmark.triangle", body: textBody }
        })
    readonly property var look: looks[face.look] ?? looks.text
    // A copy that could not be captured: there is nothing to copy.
    readonly property bool isLost: face.look === "lost"

    signal picked
    signal menuAsked(real x, real y)
    signal dragAsked(Item card)

    // The card is wide enough for the size of a picture in full.
    readonly property real footWidth: face.look === "image" ? footLabel.implicitWidth + ageLabel.implicitWidth + Theme.space1 + 2 * Theme.space3 : 0

    width: Math.ceil(Math.max(look.width * Theme.textScale, Math.min(footWidth, 160 * Theme.textScale)))
    Accessible.role: Accessible.ListItem
    Accessible.name: face.spoken
    Accessible.onPressAction: root.picked()

    Rectangle {
        id: ground

        anchors.fill: parent
        radius: Theme.radiusCard
        color: root.isHovered ? Theme.cardHover : Theme.card
        border.width: 1
        border.color: Theme.over(root.isHovered ? Theme.lineStrong : Theme.line, color)

        Behavior on color {
            ColorAnimation {
                duration: Theme.hoverDuration
                easing.type: Easing.OutCubic
            }
        }
    }
    ClipCardHead {
        id: head

        width: parent.width
        face: root.face
        symbol: root.look.symbol
        isActive: root.isHovered && !root.isLost
        onPinToggled: root.clipboard.togglePin(root.face.clipId)
    }
    Loader {
        anchors {
            left: parent.left
            right: parent.right
            top: head.bottom
            bottom: footRow.top
        }
        sourceComponent: root.look.body
    }
    Item {
        id: footRow

        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
            leftMargin: Theme.space3
            rightMargin: Theme.space3
        }
        height: Scaled.px(32)

        TipLabel {
            id: footLabel

            anchors {
                left: parent.left
                right: ageLabel.left
                rightMargin: Theme.space1
                verticalCenter: parent.verticalCenter
            }
            visible: root.face.look !== "color"
            text: root.face.foot
            role: Theme.subLine
            color: Theme.ink2
            Accessible.ignored: true
        }
        Label {
            id: ageLabel

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: root.face.age
            role: Theme.subLine
            color: Theme.ink2
            Accessible.ignored: true
        }
    }
    FocusRing {
        shown: root.isUnderKeyboard
        targetRadius: Theme.radiusCard
    }

    HoverHandler {
        id: hover
    }
    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: root.picked()
    }
    TapHandler {
        acceptedButtons: Qt.RightButton
        enabled: !root.isLost
        onTapped: eventPoint => root.menuAsked(eventPoint.position.x, eventPoint.position.y)
    }
    // The mouse drags in any direction, since it scrolls by the wheel; touch drags only vertically and scrolls otherwise.
    DragHandler {
        target: null
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        onActiveChanged: if (active)
            root.dragAsked(root)
    }
    DragHandler {
        target: null
        acceptedDevices: PointerDevice.TouchScreen | PointerDevice.Stylus
        xAxis.enabled: false
        onActiveChanged: if (active)
            root.dragAsked(root)
    }

    Component {
        id: textBody

        TextBody {
            face: root.face
            color: root.isLost ? Theme.ink2 : Theme.ink
        }
    }
    Component {
        id: codeBody

        CodeBody {
            face: root.face
        }
    }
    Component {
        id: linkBody

        LinkBody {
            face: root.face
        }
    }
    Component {
        id: colorBody

        ColorBody {
            face: root.face
        }
    }
    Component {
        id: pictureBody

        PictureBody {
            face: root.face
        }
    }
    Component {
        id: filesBody

        FilesBody {
            face: root.face
        }
    }
    Component {
        id: secretBody

        SecretBody {
            face: root.face
            isRevealed: root.isRevealed || root.isHovered
        }
    }
}
