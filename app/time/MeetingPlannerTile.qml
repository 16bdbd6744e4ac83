import QtQuick
import Ambrel.Kit
import Ambrel.Time

// When people in several cities are at work together, and in a wide tile the working hours of the first of them.
TileFrame {
    id: root

    required property MeetingModel meeting
    readonly property real barsWidth: span === TileFrame.ExtraLarge ? 92 : 56

    panel: Qt.resolvedUrl("MeetingPanel.qml")
    label: title + ", " + (meeting.face.best === "" ? "" : meeting.face.day + ", " + meeting.face.best + ", ") + meeting.face.note
    tip: meeting.face.best === "" ? meeting.face.note : meeting.face.day + ", " + meeting.face.best
    fact: meeting.face.shortDay
    hasCaptionSymbol: isWide || fact === ""
    value: isSmall ? "" : meeting.face.best === "" ? qsTr("None") : span === TileFrame.ExtraLarge ? meeting.face.best : meeting.face.begins
    valueRole: span === TileFrame.ExtraLarge ? Theme.rowTitle : Theme.value
    subLine: isSmall ? "" : isNarrow && meeting.face.best === "" ? qsTr("in common") : meeting.face.note
    reserved: isWide ? barsWidth + Theme.space2 : 0

    Item {
        visible: root.isWide || root.isSmall
        anchors.right: parent.right
        width: root.isSmall ? parent.width : root.barsWidth
        y: root.isSmall ? 4 : Theme.caption.line + 4
        height: 28

        Column {
            width: parent.width
            spacing: 2

            Repeater {
                model: root.meeting.rows

                HoursBar {
                    required property int index
                    required property meetingRow row

                    visible: index < 4
                    width: parent.width
                    height: 5
                    hours: row.spans
                }
            }
        }
        Rectangle {
            visible: root.meeting.face.now >= 0
            x: root.meeting.face.now * parent.width - 1
            width: 2
            height: parent.height
            radius: 1
            color: Theme.ink
        }
    }
    Label {
        visible: root.isSmall
        y: parent.height - height
        width: parent.width
        text: root.name
        role: Theme.subLine
        color: Theme.ink2
        horizontalAlignment: Text.AlignHCenter
        Accessible.ignored: true
    }
}
