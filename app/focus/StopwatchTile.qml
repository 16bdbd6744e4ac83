import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The stopwatch. The ring starts and stops it.
RingValueTile {
    required property Stopwatch stopwatch

    panel: Qt.resolvedUrl("StopwatchPanel.qml")
    model: stopwatch
    ticks: stopwatch.face.isRunning
    percent: stopwatch.face.isRunning ? 100 : 0
    tone: Theme.blue
    control: stopwatch.face.isRunning ? "pause.fill" : "play.fill"
    controlLabel: stopwatch.face.isRunning ? qsTr("Stop") : qsTr("Start")
    figure: stopwatch.face.elapsed
    widestFigure: stopwatch.face.elapsed.replace(/[0-9]/g, "0")
    detail: stopwatch.face.isRunning ? qsTr("Running") : stopwatch.face.isZero ? qsTr("Ready") : qsTr("Stopped")
    onControlPressed: stopwatch.toggle()
}
