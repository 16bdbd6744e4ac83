import QtQuick
import Ambrel.Kit

// A button with a text and, if wanted, a symbol before it.
Pressable {
    id: root

    enum Kind {
        Primary,
        Secondary,
        Quiet
    }

    property int kind: Button.Secondary
    property string text
    property string symbol
    // 28, 32 or 36
    property int size: 32
    // A button that removes something says so in red.
    property bool isCareful: false
    readonly property color ink: {
        if (!enabled)
            return Theme.ink3;
        if (kind === Button.Primary)
            return Theme.onAccent;
        if (isCareful)
            return Theme.red.text;
        return kind === Button.Quiet && !hovered && !down ? Theme.ink2 : Theme.ink;
    }
    readonly property color ground: {
        if (kind === Button.Quiet)
            return !enabled ? "transparent" : down ? Theme.greySoft : hovered ? Theme.card : "transparent";
        if (!enabled)
            return Theme.greySoft;
        if (kind === Button.Primary)
            return down ? Theme.accentPressed : hovered ? Theme.accentHover : Theme.accent;
        return down ? Theme.tilePressed : hovered ? Theme.cardHover : Theme.card;
    }

    label: text
    tip: title.truncated ? text : ""
    implicitHeight: Math.max(Scaled.px(size), title.height + 8)
    implicitWidth: Math.ceil(title.implicitWidth) + 2 * Theme.space3 + (symbol === "" ? 0 : icon.width + 6)
    scale: down ? Theme.pressScale : 1

    Behavior on scale {
        NumberAnimation {
            duration: root.down ? Theme.pressDuration : Theme.releaseDuration
            easing.type: Easing.OutCubic
        }
    }

    Rectangle {
        anchors.fill: parent
        radius: root.size <= 28 ? Theme.radiusSmall : Theme.radiusButton
        color: root.ground
        border.width: root.kind === Button.Secondary ? 1 : 0
        border.color: root.enabled ? Theme.over(Theme.lineStrong, root.ground) : Theme.over(Theme.line, root.ground)

        Behavior on color {
            ColorAnimation {
                duration: Theme.hoverDuration
                easing.type: Easing.OutCubic
            }
        }
    }

    Row {
        anchors.centerIn: parent
        spacing: 6

        Symbol {
            id: icon
            name: root.symbol
            color: root.ink
            size: root.size <= 28 ? 16 : 18
            visible: root.symbol !== ""
            anchors.verticalCenter: parent.verticalCenter
        }
        Label {
            id: title
            text: root.text
            role: root.size <= 28 ? Theme.smallStrong : Theme.rowTitle
            color: root.ink
            width: Math.min(implicitWidth, root.width - 2 * Theme.space3 - (root.symbol === "" ? 0 : icon.width + 6))
            anchors.verticalCenter: parent.verticalCenter
            Accessible.ignored: true
        }
    }

    FocusRing {
        targetRadius: root.size <= 28 ? Theme.radiusSmall : Theme.radiusButton
    }
}
