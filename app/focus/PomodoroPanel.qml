import QtQuick
import Ambrel.Focus
import Ambrel.Kit
import Ambrel.Model

// The focus timer's controls and lengths.
Popover {
    id: root

    required property PomodoroTimer pomodoro
    property bool live: true

    title: pomodoro.face.phaseTitle
    symbol: "timer"
    fact: qsTr("%1 today").arg(root.pomodoro.face.sessionsToday)
    fitted: column

    LiveTimeline {
        schedule: root.pomodoro.face.isRunning ? LiveTimeline.EverySecond : LiveTimeline.Never
        active: root.live
        onTicked: Qt.callLater(root.pomodoro.update) // qmllint disable
    }

    PanelColumn {
        id: column

        Row {
            width: parent.width
            spacing: Theme.space2

            TickingText {
                width: parent.width - start.width - skip.width - reset.width - 3 * parent.spacing
                height: start.height
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
        Section {
            SettingRow {
                key: "pomodoroFocus"
                title: qsTr("Focus")
                step: 5
                unit: qsTr("min")
            }
            SettingRow {
                key: "pomodoroBreak"
                title: qsTr("Break")
                unit: qsTr("min")
            }
            SettingRow {
                key: "pomodoroLongBreak"
                title: qsTr("Long Break")
                step: 5
                unit: qsTr("min")
            }
            SettingRow {
                key: "pomodoroSessions"
                title: qsTr("Long break after")
                unit: qsTr("sessions")
            }
            SettingRow {
                key: "pomodoroAutoStart"
                title: qsTr("Start the next phase by itself")
            }
        }
    }
}
