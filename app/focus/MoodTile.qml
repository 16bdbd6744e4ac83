import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The moods of the last seven days.
TileFrame {
    id: root

    required property MoodLog mood

    panel: Qt.resolvedUrl("MoodPanel.qml")
    menuText: qsTr("Change Today's Mood")
    menuSymbol: "face.smiling"
    onMenuChosen: panelAsked()
    name: isNarrow ? title : qsTr("Mood · last 7 days")
    symbol: isSmall && mood.week.today > 0 ? "mood." + mood.week.today : "face.smiling"
    label: name + ", " + (mood.week.today === 0 ? qsTr("How do you feel today?") : qsTr("today %1").arg(mood.week.todayName))
    tip: mood.week.today === 0 ? qsTr("How do you feel today?") : mood.week.text
    value: isSmall ? (mood.week.today === 0 ? "?" : mood.week.todayName) : ""

    Row {
        id: days

        visible: !root.isSmall
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.leftMargin: root.isMedium ? -6 : 0
        anchors.rightMargin: anchors.leftMargin

        Repeater {
            model: root.mood.week.days

            Column {
                id: day

                required property var modelData
                required property int index

                width: days.width / 7
                spacing: root.isMedium ? 4 : 1

                MoodFace {
                    anchors.horizontalCenter: parent.horizontalCenter
                    mood: day.modelData.mood
                    size: root.isMedium ? 13 : 18
                }
                Label {
                    width: parent.width
                    text: day.modelData.day
                    role: Theme.subLine
                    color: day.index === 6 ? Theme.ink : Theme.ink2
                    horizontalAlignment: Text.AlignHCenter
                    Accessible.ignored: true
                }
            }
        }
    }
}
