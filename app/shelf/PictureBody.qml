import QtQuick
import Ambrel.Kit

// A picture over the whole width of its card.
Item {
    id: root

    property string picture

    Rectangle {
        x: 1
        width: parent.width - 2
        height: parent.height
        color: Theme.field

        Symbol {
            anchors.centerIn: parent
            visible: image.status !== Image.Ready
            name: "photo"
            size: 28
            color: Theme.ink3
        }
        Image {
            id: image

            anchors.fill: parent
            source: root.picture === "" ? "" : "image://ambrel.clip/card/" + root.picture
            sourceSize.width: Math.round(width * Screen.devicePixelRatio)
            sourceSize.height: Math.round(height * Screen.devicePixelRatio)
            asynchronous: true
            cache: false
            Accessible.ignored: true
        }
    }
}
