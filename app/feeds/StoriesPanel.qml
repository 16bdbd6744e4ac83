import QtQuick
import Ambrel.Base
import Ambrel.Feeds
import Ambrel.Kit

// The top stories; a click opens one, and the button what its readers say.
Popover {
    id: root

    required property StoriesModel stories
    required property Presentation presentation
    readonly property storiesFace face: stories.face

    implicitWidth: Scaled.px(420)
    implicitHeight: Scaled.px(460)
    title: qsTr("Hacker News")
    symbol: "newspaper"
    fact: face.staleSince !== "" ? face.staleSince : face.updated
    onAboutToOpen: stories.begin()
    onOpenChanged: if (!open && stories) // it may have ended before its panel
        stories.end()

    headerItems: IconButton {
        anchors.verticalCenter: parent.verticalCenter
        symbol: "arrow.clockwise"
        label: qsTr("Ask again")
        onClicked: root.stories.refresh()
    }

    EmptyState {
        anchors.centerIn: parent
        visible: root.face.problem !== ""
        width: parent.width
        symbol: "newspaper"
        title: root.face.problem
        sentence: qsTr("The stories appear here as soon as the service answers.")
    }
    RowsView {
        id: view

        anchors.fill: parent
        anchors.margins: Theme.space2
        focus: true
        model: root.stories.rows

        delegate: RowSlot {
            id: item

            required property storyRow row

            ListRow {
                width: parent.width
                focus: true
                letter: item.row.rank
                title: item.row.title
                detail: item.row.detail
                isStrong: false
                onClicked: {
                    root.stories.open(item.row.storyId);
                    root.presentation.dismiss();
                }

                IconButton {
                    anchors.verticalCenter: parent.verticalCenter
                    symbol: "text.bubble"
                    label: qsTr("Discussion of %1").arg(item.row.title)
                    onClicked: {
                        root.stories.openDiscussion(item.row.storyId);
                        root.presentation.dismiss();
                    }
                }
            }
        }
    }
}
