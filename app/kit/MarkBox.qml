import QtQuick
import Ambrel.Kit

// A symbol in a box, or in its place a picture or a letter.
Rectangle {
    id: root

    property string symbol
    property Tone tone: null
    property url picture
    property string letter
    readonly property bool hasPicture: String(picture) !== ""
    readonly property bool isEmpty: symbol === "" && letter === "" && !hasPicture

    implicitWidth: Scaled.px(32)
    implicitHeight: implicitWidth
    radius: Theme.radiusButton
    color: tone ? tone.soft : Theme.card
    border.width: tone ? 0 : 1
    border.color: Theme.over(Theme.line, Theme.card)

    Symbol {
        anchors.centerIn: parent
        visible: !root.hasPicture && root.letter === ""
        name: root.symbol
        size: 18
        color: root.tone ? root.tone.text : Theme.ink2
    }
    Label {
        anchors.centerIn: parent
        visible: !root.hasPicture
        text: root.letter
        role: Theme.rowTitle
        color: Theme.ink2
        Accessible.ignored: true
    }
    Image {
        anchors.centerIn: parent
        width: Scaled.px(20)
        height: width
        sourceSize.width: 2 * width
        sourceSize.height: 2 * width
        fillMode: Image.PreserveAspectFit
        source: root.picture
        asynchronous: true
    }
}
