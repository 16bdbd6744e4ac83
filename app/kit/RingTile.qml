import QtQuick
import Ambrel.Kit

// A share as a ring with the name under it; in a wider tile the details are beside it.
TileFrame {
    id: root

    // 0 to 100; not a number while unknown.
    required property real percent
    required property string details
    property string shortDetails
    property Tone tone: Theme.teal
    // A large share is worth a warning.
    property bool warns: true
    readonly property bool isKnown: !isNaN(percent)
    readonly property string rounded: isKnown ? Math.round(percent) : "–"

    hasHeader: !isSmall
    label: isKnown ? qsTr("%1, %2 %").arg(name).arg(rounded) + (details === "" ? "" : ", " + details) : qsTr("%1, measuring").arg(name)
    tip: isKnown ? name + ": " + details : ""
    value: isSmall ? "" : rounded
    unit: isSmall || !isKnown ? "" : "%"
    subLine: isSmall ? "" : !isKnown ? qsTr("Measuring…") : span === TileFrame.ExtraLarge ? details : shortDetails
    reserved: isSmall || !isKnown ? 0 : Scaled.px(36)

    Ring {
        visible: root.isSmall || root.isKnown
        x: root.isSmall ? (parent.width - width) / 2 : parent.width - width
        y: root.isSmall ? 0 : parent.height - height
        width: Scaled.px(root.isSmall ? 36 : 32)
        height: width
        value: root.percent
        figure: root.isSmall ? root.rounded : ""
        tone: root.warns ? Theme.gaugeTone(root.isKnown ? root.percent : 0, root.tone) : root.tone
        Accessible.ignored: true
    }
    Label {
        visible: root.isSmall
        x: (parent.width - width) / 2
        y: Scaled.px(38)
        width: Math.min(implicitWidth, parent.width)
        text: root.name
        role: Theme.caption
        color: Theme.ink2
        Accessible.ignored: true
    }
}
