import QtQuick
import Ambrel.Kit

// Text in one role of the type scale. One line is as tall as its role says; wrapped text grows. What does not fit
// ends in an ellipsis, and the tip has the whole.
Text {
    id: root

    property TextRole role: Theme.body
    // Off where the control around it has a tip of its own.
    property bool hasTip: true
    readonly property bool wraps: wrapMode !== Text.NoWrap

    color: Theme.ink
    font: role.font
    height: wraps ? implicitHeight : role.line
    lineHeight: wraps ? role.line : 1
    lineHeightMode: wraps ? Text.FixedHeight : Text.ProportionalHeight
    verticalAlignment: wraps ? Text.AlignTop : Text.AlignVCenter
    elide: Text.ElideRight
    textFormat: Text.PlainText
    Accessible.role: Accessible.StaticText
    Accessible.name: text

    HoverHandler {
        enabled: root.hasTip && root.truncated
        onHoveredChanged: hovered ? Tips.enter(root, root.text) : Tips.leave(root)
    }
}
