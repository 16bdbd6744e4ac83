import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The focus timer's controls and lengths.
Popover {
    id: root

    required property PomodoroTimer pomodoro
    property bool live: true

    title: pomodoro.face.phaseTitle
    symbol: "timer"
    implicitHeight: 394

    LiveTimeline {
        schedule: root.pomodoro.face.isRunning ? LiveTimeline.EverySecond : LiveTimeline.Never
        active: root.live
        onTicked: Qt.callLater(root.pomodoro.update) // qmllint disable
    }

    headerItems: Label {
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("%1 today").arg(root.pomodoro.face.sessionsToday)
        role: Theme.small
        color: Theme.ink2
    }

    Row {
        id: controls
        x: Theme.space4
        y: Theme.space2
        width: parent.width - 2 * Theme.space4
        spacing: Theme.space2

        TickingText {
            width: parent.width - start.width - skip.width - reset.width - 3 * parent.spacing
            height: 32
            text: root.pomodoro.face.remaining
            widest: root.pomodoro.face.remaining.replace(/[0-9]/g, "0")
            font: Theme.headline.font
            color: Theme.ink
        }
        Button {
            id: start
            kind: Button.Primary
            text: root.pomodoro.face.isRunning ? qsTr("Pause") : root.pomodoro.face.isPaused ? qsTr("Resume") : qsTr("Start")
            onClicked: root.pomodoro.toggle()
        }
        IconButton {
            id: skip
            size: 32
            symbol: "forward.fill"
            label: qsTr("Skip to the next phase")
            onClicked: root.pomodoro.skip()
        }
        IconButton {
            id: reset
            size: 32
            symbol: "arrow.counterclockwise"
            label: qsTr("Restart the phase")
            onClicked: root.pomodoro.reset()
        }
    }

    ScrollView {
        anchors.fill: parent
        anchors.topMargin: controls.y + controls.height + Theme.space3
        padding: Theme.space4

        Section {
            width: parent.width

            StepperRow {
                title: qsTr("Focus")
                value: root.pomodoro.face.focusMinutes
                to: 180
                step: 5
                unit: qsTr("min")
                onStepped: value => root.pomodoro.setFocusMinutes(value)
            }
            StepperRow {
                title: qsTr("Break")
                value: root.pomodoro.face.breakMinutes
                to: 180
                unit: qsTr("min")
                onStepped: value => root.pomodoro.setBreakMinutes(value)
            }
            StepperRow {
                title: qsTr("Long Break")
                value: root.pomodoro.face.longBreakMinutes
                to: 180
                step: 5
                unit: qsTr("min")
                onStepped: value => root.pomodoro.setLongBreakMinutes(value)
            }
            StepperRow {
                title: qsTr("Long break after")
                value: root.pomodoro.face.sessionsUntilLongBreak
                to: 12
                unit: qsTr("sessions")
                onStepped: value => root.pomodoro.setSessionsUntilLongBreak(value)
            }
            SwitchRow {
                title: qsTr("Start the next phase by itself")
                checked: root.pomodoro.face.startsNextPhase
                onToggled: checked => root.pomodoro.setStartsNextPhase(checked)
            }
        }
    }
}
