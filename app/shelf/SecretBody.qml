import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit

// A secret: dots until somebody looks, and when it will be forgotten.
Item {
    id: root

    required property clipFace face
    property bool isRevealed: false

    Column {
        x: Theme.space3
        width: parent.width - 2 * Theme.space3
        spacing: Theme.space1

        Row {
            height: 16 * Theme.textScale
            spacing: 5
            visible: !root.isRevealed

            Repeater {
                model: 8

                Rectangle {
                    width: 5
                    height: 5
                    radius: 2.5
                    color: Theme.ink2
                    anchors.verticalCenter: parent.verticalCenter
                }
            }
        }
        Row {
            spacing: Theme.space1
            visible: !root.isRevealed

            Symbol {
                name: "eye.slash"
                size: 14
                color: Theme.ink2
                anchors.verticalCenter: parent.verticalCenter
            }
            Label {
                text: qsTr("masked")
                role: Theme.subLine
                color: Theme.ink2
                Accessible.ignored: true
            }
        }
        Label {
            width: parent.width
            visible: root.isRevealed
            text: root.face.title
            role: Theme.code
            wrapMode: Text.WrapAnywhere
            maximumLineCount: 4
            Accessible.ignored: true
        }
    }
    Label {
        x: Theme.space3
        width: parent.width - 2 * Theme.space3
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.space2
        text: root.face.forgetting
        role: Theme.caption
        color: Theme.orange.text
        wrapMode: Text.WordWrap
        maximumLineCount: 2
        Accessible.ignored: true
    }
}
