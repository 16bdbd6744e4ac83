import QtQuick
import Ambrel.Buddy

// The character. The item is his box; drawings around him reach outside it.
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
        live: root.live
    }
}
