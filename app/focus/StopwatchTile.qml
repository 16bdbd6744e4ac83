import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The stopwatch. The ring starts and stops it.
RingValueTile {
    id: root

    required property Stopwatch stopwatch

    panel: Qt.resolvedUrl("StopwatchPanel.qml")
    percent: stopwatch.isRunning ? 100 : 0
    tone: Theme.blue
    control: stopwatch.isRunning ? "pause.fill" : "play.fill"
    controlLabel: stopwatch.isRunning ? qsTr("Stop") : qsTr("Start")
    figure: stopwatch.elapsed
    widestFigure: stopwatch.elapsed.replace(/[0-9]/g, "0")
    detail: stopwatch.isRunning ? qsTr("Running") : stopwatch.isZero ? qsTr("Ready") : qsTr("Stopped")
    onControlPressed: stopwatch.toggle()

    LiveTimeline {
        schedule: root.stopwatch.isRunning ? LiveTimeline.EverySecond : LiveTimeline.Never
        active: root.live
        onTicked: Qt.callLater(root.stopwatch.update) // qmllint disable
    }
}
