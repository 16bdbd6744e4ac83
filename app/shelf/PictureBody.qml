import QtQuick
import Ambrel.Kit

// A picture over the whole width of its card.
Item {
    id: root

    property string picture
    // Of what came beside the picture, the beginning.
    property string text

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
        Rectangle {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            height: label.height + Theme.space2
            visible: root.text !== ""
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
            visible: root.text !== ""
            text: root.text
            role: Theme.subLine
            Accessible.ignored: true
        }
    }
}
