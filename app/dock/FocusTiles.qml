import QtQuick
import Ambrel.Dock
import Ambrel.Focus

TileSet {
    id: root

    readonly property FocusModels models: context.focus
    readonly property bool live: context.widgetsActive

    tiles: ({
            "alarm": alarmTile,
            "breathing": breathingTile,
            "eyeBreak": eyeBreakTile,
            "focusStats": focusStatsTile,
            "habits": habitsTile,
            "mood": moodTile,
            "pomodoro": pomodoroTile,
            "standUp": standUpTile,
            "stopwatch": stopwatchTile,
            "timer": timerTile,
            "water": waterTile
        })

    readonly property Component pomodoroTile: PomodoroWidget {
        pomodoro: root.models.pomodoro
        live: root.live
    }
    readonly property Component stopwatchTile: StopwatchWidget {
        stopwatch: root.models.stopwatch
        live: root.live
    }
    readonly property Component waterTile: WaterWidget {
        water: root.models.water
    }
    readonly property Component timerTile: TimerWidget {
        timer: root.models.timer
        live: root.live
    }
    readonly property Component alarmTile: AlarmWidget {
        alarm: root.models.alarm
    }
    readonly property Component eyeBreakTile: EyeBreakWidget {
        reminder: root.models.eyeBreak
        live: root.live
    }
    readonly property Component standUpTile: StandUpWidget {
        reminder: root.models.standUp
        live: root.live
    }
    readonly property Component breathingTile: BreathingWidget {
        breathing: root.models.breathing
    }
    readonly property Component habitsTile: HabitsWidget {
        habits: root.models.habits
    }
    readonly property Component moodTile: MoodWidget {
        mood: root.models.mood
    }
    readonly property Component focusStatsTile: FocusStatsWidget {
        pomodoro: root.models.pomodoro
    }
}
