import QtQuick
import Ambrel.Kit

// The soft shadow of its parent, a box with corners of `radius`; it reaches `margin` beyond it.
BorderImage {
    id: root

    // "floating", "raised" or "pin"
    property string kind: "raised"
    property int radius: Theme.radiusPanel
    readonly property int margin: kind === "raised" ? 48 : kind === "floating" ? 36 : 10

    anchors.fill: parent
    anchors.margins: -margin
    z: -1
    source: "image://ambrel.shadow/" + kind + "/" + radius + (Theme.dark ? "/dark" : "/light")
    border {
        left: root.margin + root.radius
        top: root.margin + root.radius
        right: root.margin + root.radius
        bottom: root.margin + root.radius
    }
}
