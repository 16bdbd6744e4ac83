import QtQuick
import Ambrel.Kit

// A choice among a few, or a suggestion.
Pressable {
    id: root

    property string text
    property string symbol
    property bool isChosen: false
    readonly property color ink: isChosen ? Theme.onAccent : hovered || down ? Theme.ink : Theme.ink2
    readonly property color ground: {
        if (isChosen)
            return down ? Theme.accentPressed : hovered ? Theme.accentHover : Theme.accent;
        return down ? Theme.tilePressed : hovered ? Theme.cardHover : Theme.panel;
    }

    label: text
    accessibleRole: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: isChosen
    implicitHeight: Math.max(28, title.height + Theme.space2)
    // Whole, so that what follows in a row begins at a whole pixel.
    implicitWidth: Math.ceil(content.width) + 2 * Theme.space3

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: root.ground
        border.width: root.isChosen ? 0 : 1
        border.color: Theme.over(Theme.lineStrong, root.ground)

        Behavior on color {
            ColorAnimation {
                duration: Theme.hoverDuration
                easing.type: Easing.OutCubic
            }
        }
    }
    Row {
        id: content
        anchors.centerIn: parent
        spacing: 6

        Symbol {
            visible: root.symbol !== ""
            name: root.symbol
            size: 16
            color: root.ink
            anchors.verticalCenter: parent.verticalCenter
        }
        Label {
            id: title
            text: root.text
            role: root.isChosen ? Theme.smallStrong : Theme.smallMedium
            color: root.ink
            anchors.verticalCenter: parent.verticalCenter
            Accessible.ignored: true
        }
    }
    FocusRing {
        targetRadius: root.height / 2
    }
}
