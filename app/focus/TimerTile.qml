import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The quick timer. The ring cancels it, or resets it once it has finished.
RingValueTile {
    id: root

    required property QuickTimer timer

    panel: Qt.resolvedUrl("TimerPanel.qml")
    percent: timer.isRunning ? timer.percentLeft : timer.isFinished ? 100 : 0
    tone: timer.isFinished ? Theme.green : Theme.violet
    control: timer.isRunning ? "xmark" : timer.isFinished ? "checkmark" : "play.fill"
    controlLabel: timer.isRunning ? qsTr("Cancel the timer") : timer.isFinished ? qsTr("Clear the timer") : qsTr("Choose a time")
    figure: timer.isRunning ? timer.remaining : timer.isFinished ? qsTr("Done") : qsTr("Set")
    widestFigure: timer.isRunning ? timer.remaining.replace(/[0-9]/g, "0") : ""
    ink: timer.isFinished ? Theme.green.text : Theme.ink
    detail: timer.detail !== "" ? timer.detail : qsTr("Off")
    onControlPressed: timer.isRunning || timer.isFinished ? timer.cancel() : root.clicked()

    LiveTimeline {
        schedule: root.timer.isRunning ? LiveTimeline.EverySecond : LiveTimeline.Never
        active: root.live
        onTicked: Qt.callLater(root.timer.update) // qmllint disable
    }
}
