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
    reserved: span === TileFrame.Small ? 0 : span === TileFrame.Medium ? 34 : 92
    tip: pomodoro.week.text

    WeekBars {
        visible: root.span !== TileFrame.Small
        week: root.pomodoro.week.days
        hasLetters: root.span !== TileFrame.Medium
        width: root.span === TileFrame.Medium ? 34 : 92
        spacing: root.span === TileFrame.Medium ? 2 : 4
        height: 34
        anchors.right: parent.right
        anchors.bottom: parent.bottom
    }
}
