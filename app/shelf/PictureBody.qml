import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit

// A picture over the whole width of its card, and the beginning of the text that came with it.
Item {
    id: root

    required property clipFace face

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
            source: root.face.picture === "" ? "" : "image://ambrel.clip/card/" + root.face.picture
            sourceSize.width: Math.round(width * Screen.devicePixelRatio)
            sourceSize.height: Math.round(height * Screen.devicePixelRatio)
            asynchronous: true
            cache: false
            Accessible.ignored: true
        }
        Rectangle {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            height: label.height + Theme.space2
            visible: root.face.detail !== ""
            color: Theme.card
            opacity: 0.9
        }
        Label {
            id: label

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            anchors.leftMargin: Theme.space3
            anchors.rightMargin: Theme.space3
            anchors.bottomMargin: Theme.space1
            visible: root.face.detail !== ""
            text: root.face.detail
            role: Theme.subLine
            Accessible.ignored: true
        }
    }
}
