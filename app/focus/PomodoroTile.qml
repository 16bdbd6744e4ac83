import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The focus timer. The ring starts and pauses it.
RingValueTile {
    id: root

    required property PomodoroTimer pomodoro

    panel: Qt.resolvedUrl("PomodoroPanel.qml")
    name: pomodoro.isFocus ? caption : pomodoro.phaseTitle
    percent: pomodoro.percentLeft
    tone: pomodoro.isFocus ? Theme.orange : Theme.green
    control: pomodoro.isRunning ? "pause.fill" : "play.fill"
    controlLabel: pomodoro.isRunning ? qsTr("Pause") : pomodoro.isPaused ? qsTr("Resume") : qsTr("Start")
    figure: pomodoro.remaining
    widestFigure: pomodoro.remaining.length > 5 ? "0:00:00" : "00:00"
    detail: pomodoro.isPaused ? qsTr("Paused") : pomodoro.lengthText
    onControlPressed: pomodoro.toggle()

    LiveTimeline {
        schedule: root.pomodoro.isRunning ? LiveTimeline.EverySecond : LiveTimeline.Never
        active: root.live
        onTicked: Qt.callLater(root.pomodoro.update) // qmllint disable
    }
}
