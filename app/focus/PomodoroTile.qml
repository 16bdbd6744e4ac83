import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The focus timer. The ring starts and pauses it.
RingValueTile {
    required property PomodoroTimer pomodoro

    panel: Qt.resolvedUrl("PomodoroPanel.qml")
    name: pomodoro.face.isFocus ? caption : pomodoro.face.phaseTitle
    model: pomodoro
    ticks: pomodoro.face.isRunning
    percent: pomodoro.face.percentLeft
    tone: pomodoro.face.isFocus ? Theme.orange : Theme.green
    control: pomodoro.face.isRunning ? "pause.fill" : "play.fill"
    controlLabel: pomodoro.face.isRunning ? qsTr("Pause") : pomodoro.face.isPaused ? qsTr("Resume") : qsTr("Start")
    figure: pomodoro.face.remaining
    widestFigure: pomodoro.face.remaining.length > 5 ? "0:00:00" : "00:00"
    detail: pomodoro.face.isPaused ? qsTr("Paused") : pomodoro.face.lengthText
    onControlPressed: pomodoro.toggle()
}
