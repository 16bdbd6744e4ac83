import QtQuick
import Ambrel.Kit

// The soft shadow of its parent, a box with corners of `radius`; it reaches `margin` beyond it. Long sides stretch one
// shared picture, short ones have a picture of their own length.
BorderImage {
    id: root

    // "floating", "raised" or "pin"
    property string kind: "raised"
    property int radius: Theme.radiusPanel
    readonly property int margin: kind === "raised" ? 48 : kind === "floating" ? 38 : 10
    readonly property int inset: Math.max(radius, kind === "raised" ? 40 : kind === "floating" ? 30 : 8)
    readonly property int boxWidth: parent.width > 2 * inset ? 0 : Math.max(1, Math.round(parent.width))
    readonly property int boxHeight: parent.height > 2 * inset ? 0 : Math.max(1, Math.round(parent.height))

    anchors.fill: parent
    anchors.margins: -margin
    z: -1
    visible: parent.width > 0 && parent.height > 0
    // Its parent may have no size yet, or less than none while it is laid out.
    source: parent.width <= 0 || parent.height <= 0 ? "" : `image://ambrel.shadow/${kind}/${radius}/${boxWidth}/${boxHeight}/${Theme.dark ? "dark" : "light"}`
    border {
        left: boxWidth > 0 ? 0 : margin + inset
        right: border.left
        top: boxHeight > 0 ? 0 : margin + inset
        bottom: border.top
    }
}
