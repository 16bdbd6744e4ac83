import QtQuick
import Ambrel.Buddy
import Ambrel.Kit

// What the agents did while the user was looking elsewhere.
Rectangle {
    id: root

    required property BuddyNoticeCenter center

    implicitHeight: column.height + 2 * Theme.space3
    radius: Theme.radiusCard
    color: Theme.card
    border.width: 1
    border.color: Theme.over(Theme.line, Theme.card)

    Column {
        id: column

        x: Theme.space3
        y: Theme.space3
        width: parent.width - 2 * Theme.space3
        spacing: Theme.space2

        Item {
            width: parent.width
            height: heading.height

            Label {
                id: heading

                text: qsTr("While you were away")
                role: Theme.rowTitle
                Accessible.role: Accessible.Heading
            }
            TipLabel {
                anchors.right: parent.right
                text: qsTr("since %1").arg(root.center.inbox.digestSince)
                role: Theme.small
                color: Theme.ink2
            }
        }
        Repeater {
            model: root.center.inbox.digest

            Column {
                id: entry

                required property var modelData

                width: column.width
                Accessible.role: Accessible.StaticText
                Accessible.name: modelData.title + ", " + modelData.text

                TipLabel {
                    width: parent.width
                    text: entry.modelData.title
                    role: Theme.smallMedium
                    Accessible.ignored: true
                }
                Label {
                    width: parent.width
                    text: entry.modelData.text
                    role: Theme.small
                    color: Theme.ink2
                    wrapMode: Text.Wrap
                    Accessible.ignored: true
                }
            }
        }
    }
}
