import QtQuick
import Ambrel.Kit

// A list with a heading over the rows of each section.
ListView {
    id: root

    clip: true
    bottomMargin: Theme.space2
    boundsBehavior: Flickable.StopAtBounds
    Accessible.role: Accessible.List
    section.delegate: Item {
        id: heading

        required property string section

        width: ListView.view.width
        height: title.height + Theme.space3

        Label {
            id: title
            x: Theme.space4 - root.leftMargin
            width: parent.width - 2 * Theme.space4
            anchors.bottom: parent.bottom
            anchors.bottomMargin: Theme.space1
            text: heading.section
            role: Theme.captionStrong
            color: Theme.ink2
        }
    }

    ScrollBar {
        view: root
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.space3
    }
}
