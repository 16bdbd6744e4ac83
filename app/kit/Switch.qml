import QtQuick
import Ambrel.Kit

// On or off. It does not change by itself: `toggled` says what is wanted, and `checked` follows what is so.
Pressable {
    id: root

    property bool checked: false

    signal toggled(bool checked)

    accessibleRole: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onToggleAction: root.press()
    implicitWidth: Scaled.px(36)
    implicitHeight: Scaled.px(20)
    opacity: enabled ? 1 : 0.5
    onClicked: root.toggled(!root.checked)

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: root.checked ? (root.hovered ? Theme.accentHover : Theme.accent) : root.hovered ? Theme.cardHover : Theme.greySoft
        border.width: root.checked ? 0 : 1.5
        border.color: Theme.ink3

        Rectangle {
            width: Scaled.px(root.checked ? 14 : 12)
            height: width
            radius: width / 2
            x: root.checked ? parent.width - width - (parent.height - height) / 2 : (parent.height - height) / 2
            anchors.verticalCenter: parent.verticalCenter
            color: root.checked ? Theme.onAccent : Theme.ink3

            Behavior on x {
                NumberAnimation {
                    duration: Theme.hoverDuration
                    easing.type: Easing.OutCubic
                }
            }
        }
    }
    FocusRing {
        targetRadius: root.height / 2
    }
}
