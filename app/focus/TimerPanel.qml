import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// Starting the quick timer.
Popover {
    id: root

    required property QuickTimer timer
    property bool live: true
    property int minutes: 5

    title: qsTr("Timer")
    symbol: "hourglass"
    fact: root.timer.face.isRunning ? root.timer.face.remaining : root.timer.face.detail
    fitted: column

    LiveTimeline {
        schedule: root.timer.face.isRunning ? LiveTimeline.EverySecond : LiveTimeline.Never
        active: root.live
        onTicked: Qt.callLater(root.timer.update) // qmllint disable
    }

    PanelColumn {
        id: column

        Flow {
            width: parent.width
            spacing: Theme.space2

            Repeater {
                model: [1, 3, 5, 10, 15, 20, 25, 30, 45, 60]

                Chip {
                    required property int modelData

                    text: qsTr("%1 min").arg(modelData)
                    onClicked: {
                        root.timer.start(modelData * 60);
                        root.closeRequested();
                    }
                }
            }
        }
        Section {
            StepperRow {
                title: qsTr("Other length")
                value: root.minutes
                to: 1440
                unit: qsTr("min")
                onStepped: value => root.minutes = value
            }
        }
        Row {
            spacing: Theme.space2

            Button {
                kind: Button.Primary
                text: qsTr("Start")
                onClicked: {
                    root.timer.start(root.minutes * 60);
                    root.closeRequested();
                }
            }
            Button {
                visible: root.timer.face.isRunning || root.timer.face.isFinished
                text: root.timer.face.isRunning ? qsTr("Cancel the timer") : qsTr("Clear the timer")
                onClicked: root.timer.cancel()
            }
        }
    }
}
