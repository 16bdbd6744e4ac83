import QtQuick
import Ambrel.Kit
import Ambrel.Media

// What plays, with its controls. The first click connects, the others open the panel.
TileFrame {
    id: root

    required property NowPlayingModel nowPlaying
    property nowPlayingFace face: nowPlaying.face
    readonly property bool hasControls: face.hasPlayer && !isSmall
    readonly property bool showsCover: isWide && face.hasPlayer && nowPlaying.hasCover

    panel: face.isConnected ? Qt.resolvedUrl("NowPlayingPanel.qml") : ""
    menuText: face.isConnected ? qsTr("Disconnect") : qsTr("Connect")
    menuSymbol: "music.note"
    onMenuChosen: nowPlaying.setConnected(!face.isConnected)
    onActivated: nowPlaying.setConnected(true)
    hasHeader: !isSmall && !showsCover
    name: face.hasPlayer && isWide ? face.player : caption
    value: showsCover ? "" : isSmall ? (face.isPlaying ? qsTr("On") : qsTr("Off")) : !face.isConnected ? qsTr("Connect") : !face.hasPlayer ? qsTr("Nothing plays") : face.title
    valueRole: Theme.rowTitle
    valueColor: face.hasPlayer ? Theme.ink : Theme.ink2
    subLine: showsCover || isMedium && face.hasPlayer ? "" : !face.isConnected ? (isWide ? qsTr("Shows what plays here") : qsTr("Click first")) : face.hasPlayer ? (face.artist === "" ? face.status : face.artist) : (isWide ? qsTr("Start a player to see it") : "")
    reserved: hasControls && isWide ? controls.width + Theme.space2 : 0
    label: !face.isConnected ? qsTr("%1, connect").arg(caption) : face.hasPlayer ? caption + ", " + face.spoken : spoken
    tip: label

    CoverPicture {
        visible: root.showsCover
        x: -Theme.space1
        y: Math.round((parent.height - height) / 2)
        width: 48
        height: 48
        radius: Theme.radiusSmall
        picture: root.nowPlaying.cover
    }
    Column {
        visible: root.showsCover
        x: 48 + Theme.space1
        anchors.verticalCenter: parent.verticalCenter
        width: controls.x - x - Theme.space1

        Label {
            width: parent.width
            text: root.face.title
            role: Theme.rowTitle
            Accessible.ignored: true
        }
        Label {
            width: parent.width
            text: root.face.artist === "" ? root.face.player : root.face.artist
            role: Theme.subLine
            color: Theme.ink2
            Accessible.ignored: true
        }
    }
    Row {
        id: controls

        visible: root.hasControls
        x: root.isMedium ? -Theme.space1 : parent.width - width + Theme.space1
        y: root.isMedium ? root.subLineTop - Theme.space1 : Math.round((parent.height - height) / 2)

        Repeater {
            model: root.hasControls ? root.isMedium ? 3 : 2 : 0

            IconButton {
                required property int index
                readonly property int act: root.isMedium ? index : index + 1

                size: root.isMedium ? 22 : 28
                symbolSize: root.isMedium ? 16 : 20
                symbol: act === 0 ? "backward.fill" : act === 2 ? "forward.fill" : root.face.isPlaying ? "pause.fill" : "play.fill"
                label: act === 0 ? qsTr("Previous") : act === 2 ? qsTr("Next") : root.face.isPlaying ? qsTr("Pause") : qsTr("Play")
                enabled: act === 0 ? root.face.canGoPrevious : act === 2 ? root.face.canGoNext : root.face.canToggle
                onClicked: act === 0 ? root.nowPlaying.previous() : act === 2 ? root.nowPlaying.next() : root.nowPlaying.toggle()
            }
        }
    }
}
