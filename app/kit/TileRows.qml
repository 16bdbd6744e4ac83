import QtQuick
import Ambrel.Kit

// The value and the sub-line of a tile, or in their place what is wrong and why. In a small tile they are in the
// middle, under the symbol.
Item {
    id: root

    property bool isSmall: false
    property string symbol
    property string name
    property string value
    property string unit
    property string widestValue
    property TextRole valueRole: Theme.value
    property color valueColor: Theme.ink
    property string subLine
    property string problem
    property string staleSince
    property real reserved: 0
    readonly property bool isUnavailable: problem !== ""
    readonly property bool isStale: staleSince !== ""
    readonly property bool isWordy: isSmall && isUnavailable
    readonly property bool isElided: figure.truncated || sub.truncated || isWordy

    Symbol {
        visible: root.isSmall
        name: root.symbol
        size: 18
        color: root.isUnavailable ? Theme.ink3 : Theme.ink2
        anchors.horizontalCenter: parent.horizontalCenter
    }
    TickingText {
        id: figure
        visible: !root.isWordy
        y: root.isSmall ? Scaled.px(19) : Theme.caption.line
        x: root.isSmall ? Math.round((root.width - width) / 2) : 0
        height: root.isSmall ? Theme.rowTitle.line : root.isUnavailable ? Theme.value.line : root.valueRole.line
        width: Math.min(implicitWidth, room)
        room: Math.max(0, root.width - (root.isSmall || root.isUnavailable ? 0 : root.reserved + measure.space))
        leastSize: Theme.captionStrong.font.pixelSize
        alignment: root.isSmall ? Qt.AlignHCenter : Qt.AlignLeft
        text: root.isUnavailable ? qsTr("Not available") : root.value
        widest: root.isUnavailable ? "" : root.widestValue
        font: root.isSmall ? Theme.rowTitle.font : root.isUnavailable ? Theme.listName.font : root.valueRole.font
        color: root.isUnavailable || root.isStale ? Theme.ink2 : root.valueColor
    }
    Label {
        id: measure
        readonly property real space: visible ? implicitWidth + 2 : 0
        visible: root.unit !== "" && !root.isUnavailable && !root.isSmall
        text: root.unit
        role: Theme.unit
        color: Theme.ink2
        anchors.left: figure.right
        anchors.leftMargin: 2
        anchors.baseline: figure.baseline
        Accessible.ignored: true
    }
    Label {
        id: sub
        visible: !root.isWordy
        y: root.isSmall ? root.height - height : Theme.caption.line + Theme.value.line
        width: root.width - (root.isSmall || root.isUnavailable || root.isStale ? 0 : root.reserved)
        text: root.isSmall ? root.name : root.isUnavailable ? root.problem : root.isStale ? root.staleSince : root.subLine
        role: Theme.subLine
        color: root.isStale ? Theme.orange.text : Theme.ink2
        horizontalAlignment: root.isSmall ? Text.AlignHCenter : Text.AlignLeft
        Accessible.ignored: true
    }
    Label {
        visible: root.isWordy
        y: root.height - height
        width: root.width
        text: qsTr("Not available")
        role: Theme.subLine
        color: Theme.ink2
        wrapMode: Text.WordWrap
        maximumLineCount: 2
        horizontalAlignment: Text.AlignHCenter
        Accessible.ignored: true
    }
}
