import QtQuick
import Ambrel.Kit

// Chosen, partly chosen or not. It does not change by itself: `toggled` says what is wanted.
Pressable {
    id: root

    property int checkState: Qt.Unchecked
    readonly property bool isOn: checkState !== Qt.Unchecked

    signal toggled(bool checked)

    accessibleRole: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: checkState === Qt.Checked
    Accessible.checkStateMixed: checkState === Qt.PartiallyChecked
    Accessible.onToggleAction: root.press()
    implicitWidth: Scaled.px(18)
    implicitHeight: implicitWidth
    opacity: enabled ? 1 : 0.5
    onClicked: root.toggled(root.checkState !== Qt.Checked)

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusCheck
        color: root.isOn ? (root.hovered ? Theme.accentHover : Theme.accent) : root.hovered ? Theme.cardHover : "transparent"
        border.width: root.isOn ? 0 : 1.5
        border.color: Theme.ink3
    }
    Symbol {
        anchors.centerIn: parent
        visible: root.isOn
        name: root.checkState === Qt.PartiallyChecked ? "minus" : "checkmark"
        size: 14
        color: Theme.onAccent
    }
    FocusRing {
        targetRadius: Theme.radiusCheck
    }
}
