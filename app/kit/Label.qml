import QtQuick
import Ambrel.Kit

// Text in one role of the type scale. One line is as tall as its role says; wrapped text grows. What does not fit
// ends in an ellipsis; where a text can be longer than its place, use TipLabel, or the tip of the control around it.
Text {
    id: root

    property TextRole role: Theme.body
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
}
