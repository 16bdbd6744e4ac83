import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit
import Ambrel.Shelf

// One clip, drawn after its kind. A click picks it, dragging it takes it along.
Item {
    id: root

    required property ClipboardModel clipboard
    required property string clipId
    required property string look
    required property string kindText
    required property string title
    required property string detail
    required property string code
    required property color swatch
    required property var files
    required property string moreFiles
    required property string picture
    required property string foot
    required property string age
    required property int pinNumber
    required property bool isPinned
    required property bool isCurrent
    required property string forgetting
    required property string spoken
    property bool isUnderKeyboard: false
    // A secret may be seen; the pointer reveals it too.
    property bool isRevealed: false

    readonly property bool isHovered: hover.hovered
    readonly property var widths: ({
            text: 148,
            code: 156,
            link: 136,
            color: 96,
            image: 124,
            files: 120,
            secret: 120,
            lost: 148
        })
    readonly property var symbols: ({
            text: "text.alignleft",
            code: "chevron.left.forwardslash.chevron.right",
            link: "link",
            color: "paintpalette",
            image: "photo",
            files: "doc",
            secret: "lock.fill",
            lost: "exclamationmark.triangle"
        })
    readonly property var bodies: ({
            text: textBody,
            code: codeBody,
            link: linkBody,
            color: colorBody,
            image: pictureBody,
            files: filesBody,
            secret: secretBody,
            lost: lostBody
        })

    // A copy that could not be taken over: there is nothing to pick.
    readonly property bool isLost: look === "lost"

    signal picked
    signal menuAsked(real x, real y)
    signal dragAsked(Item card)

    // The size of a picture is read in full, however long the language's ages are.
    readonly property real footWidth: look === "image" ? footLabel.implicitWidth + ageLabel.implicitWidth + Theme.space1 + 2 * Theme.space3 : 0

    width: Math.ceil(Math.max((widths[look] ?? 148) * Theme.textScale, Math.min(footWidth, 160 * Theme.textScale)))
    Accessible.role: Accessible.ListItem
    Accessible.name: spoken
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
        symbol: root.symbols[root.look] ?? "text.alignleft"
        text: root.kindText
        pinNumber: root.pinNumber
        isPinned: root.isPinned
        isCurrent: root.isCurrent
        isActive: root.isHovered && !root.isLost
        onPinToggled: root.clipboard.togglePin(root.clipId)
    }
    Loader {
        anchors {
            left: parent.left
            right: parent.right
            top: head.bottom
            bottom: footRow.top
        }
        sourceComponent: root.bodies[root.look] ?? textBody
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
        height: Math.round(32 * Theme.textScale)

        TipLabel {
            id: footLabel

            anchors {
                left: parent.left
                right: ageLabel.left
                rightMargin: Theme.space1
                verticalCenter: parent.verticalCenter
            }
            visible: root.look !== "color"
            text: root.foot
            role: Theme.subLine
            color: Theme.ink2
            Accessible.ignored: true
        }
        Label {
            id: ageLabel

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: root.age
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
    // The mouse has the wheel for scrolling and takes the clip along wherever it goes; a finger scrolls along the row.
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
            text: root.title
        }
    }
    Component {
        id: codeBody

        CodeBody {
            code: root.code
        }
    }
    Component {
        id: linkBody

        LinkBody {
            host: root.title
            rest: root.detail
        }
    }
    Component {
        id: colorBody

        ColorBody {
            swatch: root.swatch
            notation: root.title
            components: root.detail
        }
    }
    Component {
        id: pictureBody

        PictureBody {
            picture: root.picture
            text: root.detail
        }
    }
    Component {
        id: filesBody

        FilesBody {
            files: root.files
            more: root.moreFiles
        }
    }
    Component {
        id: lostBody

        TextBody {
            text: root.title
            color: Theme.ink2
        }
    }
    Component {
        id: secretBody

        SecretBody {
            text: root.title
            forgetting: root.forgetting
            isRevealed: root.isRevealed || root.isHovered
        }
    }
}
