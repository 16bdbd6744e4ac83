import QtQuick
import Ambrel.Kit
import Ambrel.Media

// What plays: its cover, how far it is, the controls, and the players to choose from.
Popover {
    id: root

    required property NowPlayingModel nowPlaying
    readonly property nowPlayingFace face: nowPlaying.face

    title: qsTr("Now Playing")
    symbol: "music.note"
    fact: face.hasPlayer ? face.player : ""
    implicitHeight: header.height + (face.hasPlayer ? column.height + Theme.space2 : 180) + Theme.space4
    onAboutToOpen: nowPlaying.begin()
    onOpenChanged: if (!open && nowPlaying) // it may have ended before its panel
        nowPlaying.end()

    EmptyState {
        anchors.centerIn: parent
        visible: !root.face.hasPlayer
        width: parent.width
        symbol: "music.note"
        title: qsTr("Nothing plays")
        sentence: qsTr("Start a song or a film in a player, and it appears here.")
    }
    PanelColumn {
        id: column

        visible: root.face.hasPlayer

        Item {
            width: parent.width
            height: 72

            Rectangle {
                id: box

                width: 72
                height: 72
                radius: Theme.radiusButton
                color: Theme.card

                Symbol {
                    anchors.centerIn: parent
                    visible: !root.nowPlaying.hasCover
                    name: "music.note"
                    size: 28
                    color: Theme.ink3
                }
                CoverPicture {
                    anchors.fill: parent
                    radius: Theme.radiusButton
                    picture: root.nowPlaying.cover
                }
            }
            Column {
                anchors {
                    left: box.right
                    leftMargin: Theme.space3
                    right: parent.right
                    verticalCenter: parent.verticalCenter
                }

                TipLabel {
                    width: parent.width
                    text: root.face.title
                    role: Theme.panelTitle
                }
                TipLabel {
                    width: parent.width
                    visible: text !== ""
                    text: root.face.artist
                    color: Theme.ink2
                }
                TipLabel {
                    width: parent.width
                    visible: text !== ""
                    text: root.face.album
                    role: Theme.small
                    color: Theme.ink2
                }
            }
        }
        Item {
            width: parent.width
            height: slider.height
            visible: root.face.length !== ""

            Label {
                id: passed

                anchors.verticalCenter: parent.verticalCenter
                text: root.nowPlaying.positionText
                role: Theme.small
                color: Theme.ink2
            }
            Slider {
                id: slider

                anchors {
                    left: parent.left
                    leftMargin: 44
                    right: parent.right
                    rightMargin: 44
                }
                enabled: root.face.canSeek
                to: root.face.lengthSeconds
                stepSize: 1
                value: Math.max(0, root.nowPlaying.position)
                label: qsTr("Position")
                figure: qsTr("%1 of %2").arg(passed.text).arg(root.face.length)
                onMoved: value => root.nowPlaying.seek(value)
            }
            Label {
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                text: root.face.length
                role: Theme.small
                color: Theme.ink2
            }
        }
        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: Theme.space3

            IconButton {
                size: 36
                symbolSize: 24
                symbol: "backward.fill"
                label: qsTr("Previous")
                enabled: root.face.canGoPrevious
                onClicked: root.nowPlaying.previous()
            }
            IconButton {
                size: 36
                symbolSize: 28
                symbol: root.face.isPlaying ? "pause.fill" : "play.fill"
                label: root.face.isPlaying ? qsTr("Pause") : qsTr("Play")
                enabled: root.face.canToggle
                focus: true
                onClicked: root.nowPlaying.toggle()
            }
            IconButton {
                size: 36
                symbolSize: 24
                symbol: "forward.fill"
                label: qsTr("Next")
                enabled: root.face.canGoNext
                onClicked: root.nowPlaying.next()
            }
        }
        Column {
            width: parent.width
            visible: players.count > 1

            Repeater {
                id: players

                model: root.nowPlaying.players

                ListRow {
                    required property playerRow row

                    width: parent.width
                    symbol: row.isPlaying ? "play.fill" : "pause.fill"
                    title: row.name
                    detail: row.detail
                    isCurrent: row.isShown
                    isStrong: false
                    onClicked: root.nowPlaying.choose(row.playerId)
                }
            }
        }
    }
}
