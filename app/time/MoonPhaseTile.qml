import QtQuick
import Ambrel.Kit
import Ambrel.Time

// The moon as it is tonight.
TileFrame {
    id: root

    required property MoonModel moon

    panel: Qt.resolvedUrl("MoonPanel.qml")
    hasHeader: !isSmall
    label: title + ", " + moon.face.name + ", " + moon.face.lit + ", " + moon.face.next
    tip: moon.face.name + ", " + moon.face.next
    value: isWide ? moon.face.name : ""
    valueRole: Theme.rowTitle
    subLine: span === TileFrame.ExtraLarge ? moon.face.lit + " · " + moon.face.next : isWide ? moon.face.next : ""
    reserved: isWide ? 40 : 0

    MoonDisc {
        width: root.isSmall ? 34 : 32
        height: width
        x: root.isSmall ? (parent.width - width) / 2 : root.isMedium ? 0 : parent.width - width
        y: root.isSmall ? 0 : root.isMedium ? Theme.caption.line + 2 : 4
        percent: root.moon.face.percent
        isWaxing: root.moon.face.isWaxing
        lit: Theme.weatherSun
        dark: Theme.track
    }
    Label {
        visible: root.isSmall
        y: parent.height - height
        width: parent.width
        text: root.moon.face.lit
        role: Theme.subLine
        color: Theme.ink2
        horizontalAlignment: Text.AlignHCenter
        Accessible.ignored: true
    }
    Label {
        visible: root.isMedium
        x: 38
        y: Theme.caption.line + 4
        width: parent.width - x + Theme.space2
        text: root.moon.face.name
        role: Theme.captionStrong
        wrapMode: Text.WordWrap
        maximumLineCount: 2
        Accessible.ignored: true
    }
}
