import QtQuick
import Ambrel.Kit

// A sentence on two lines.
TileFrame {
    id: root

    property string text

    label: isUnavailable ? spoken : name + ", " + text
    tip: isUnavailable || isSmall || words.truncated ? label : ""

    Label {
        id: words

        visible: !root.isSmall
        y: root.valueTop
        width: parent.width
        height: parent.height - y
        text: root.text
        role: root.isWide ? Theme.smallMedium : Theme.subLine
        color: root.figureColor
        wrapMode: Text.WordWrap
        maximumLineCount: 2
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
}
