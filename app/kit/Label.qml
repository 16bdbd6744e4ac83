import QtQuick
import Ambrel.Kit

// Text in one role of the type scale. One line is as tall as its role says; wrapped text grows.
Text {
    id: root

    property TextRole role: Theme.body

    color: Theme.ink
    font: role.font
    height: wrapMode === Text.NoWrap ? role.line : implicitHeight
    lineHeight: wrapMode === Text.NoWrap ? 1 : role.line
    lineHeightMode: wrapMode === Text.NoWrap ? Text.ProportionalHeight : Text.FixedHeight
    verticalAlignment: wrapMode === Text.NoWrap ? Text.AlignVCenter : Text.AlignTop
    elide: Text.ElideRight
    textFormat: Text.PlainText
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
