import QtQuick
import Ambrel.Kit

// The name under the mark of a small tile.
Label {
    x: (parent.width - width) / 2
    y: Scaled.px(38)
    width: Math.min(implicitWidth, parent.width)
    role: Theme.caption
    color: Theme.ink2
    Accessible.ignored: true
}
