import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The quick timer. The ring cancels it, or resets it once it has finished.
RingValueTile {
    id: root

    required property QuickTimer timer

    panel: Qt.resolvedUrl("TimerPanel.qml")
    model: timer
    ticks: timer.face.isRunning
    percent: timer.face.isRunning ? timer.face.percentLeft : timer.face.isFinished ? 100 : 0
    tone: timer.face.isFinished ? Theme.green : Theme.violet
    control: timer.face.isRunning ? "xmark" : timer.face.isFinished ? "checkmark" : "play.fill"
    controlLabel: timer.face.isRunning ? qsTr("Cancel the timer") : timer.face.isFinished ? qsTr("Clear the timer") : qsTr("Choose a time")
    figure: timer.face.isRunning ? timer.face.remaining : timer.face.isFinished ? qsTr("Done") : qsTr("Set")
    ink: timer.face.isFinished ? Theme.green.text : Theme.ink
    detail: timer.face.detail !== "" ? timer.face.detail : qsTr("Off")
    onControlPressed: timer.face.isRunning || timer.face.isFinished ? timer.cancel() : root.clicked()
}
