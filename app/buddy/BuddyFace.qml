import QtQuick
import Ambrel.Buddy
import Ambrel.Kit

// The character in the colours of the theme. The item is his box alone; what he waves about reaches beyond it.
Item {
    id: root

    property string pose: "idle"
    property real size: 50
    property bool live: true

    implicitWidth: size
    implicitHeight: size
    Accessible.ignored: true

    BuddyFigure {
        anchors.centerIn: parent
        width: implicitWidth
        height: implicitHeight
        boxSize: root.size
        pose: root.pose
        dark: Theme.dark
        still: Theme.reducedMotion
        live: root.live
        lineColor: Theme.ink2
        boardColor: Theme.greySoft
        inkColor: Theme.ink
    }
}
