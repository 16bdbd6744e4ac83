import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The focus sessions of this week.
TileFrame {
    id: root

    required property PomodoroTimer pomodoro

    panel: Qt.resolvedUrl("FocusStatsPanel.qml")
    value: pomodoro.week.total
    subLine: qsTr("this week")
    reserved: isSmall ? 0 : Scaled.px(isMedium ? 34 : 92)
    tip: pomodoro.week.text

    WeekBars {
        visible: !root.isSmall
        week: root.pomodoro.week.days
        hasLetters: !root.isMedium
        width: Scaled.px(root.isMedium ? 34 : 92)
        spacing: root.isMedium ? 2 : 4
        height: Scaled.px(34)
        anchors.right: parent.right
        anchors.bottom: parent.bottom
    }
}
