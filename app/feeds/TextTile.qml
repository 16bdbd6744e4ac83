import QtQuick
import Ambrel.Kit

// A sentence: on two lines where there is room for them.
TileFrame {
    id: root

    property string text

    value: isNarrow && !isSmall ? text : ""
    valueRole: Theme.rowTitle
    label: isUnavailable ? spoken : name + ", " + text
    tip: isUnavailable || isNarrow || words.truncated ? label : ""

    Label {
        id: words

        visible: root.isWide
        y: root.valueTop
        width: parent.width
        height: parent.height - y
        text: root.text
        role: Theme.smallMedium
        color: root.figureColor
        wrapMode: Text.WordWrap
        maximumLineCount: 2
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
}
