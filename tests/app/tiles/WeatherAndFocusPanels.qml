import QtQuick
import Ambrel.Focus
import Ambrel.Kit
import Ambrel.Weather

// Every panel of both families.
Rectangle {
    id: root

    required property WeatherModel weather
    required property PomodoroTimer pomodoro
    required property Stopwatch stopwatch
    required property WaterTracker water
    required property QuickTimer timer
    required property AlarmClock alarm
    required property BreakReminder eyeBreak
    required property BreakReminder standUp
    required property HabitStore habits
    required property MoodLog mood

    width: 1440
    height: 1120
    color: Theme.tilePressed

    Flow {
        anchors.fill: parent
        anchors.margins: 12
        spacing: 12
        flow: Flow.TopToBottom

        WeatherSettings { objectName: "weatherSettings"; weather: root.weather; width: implicitWidth; height: implicitHeight }
        PomodoroSettings { objectName: "pomodoroSettings"; pomodoro: root.pomodoro; width: implicitWidth; height: implicitHeight }
        MoodPanel { objectName: "moodPanel"; mood: root.mood; width: implicitWidth; height: implicitHeight }
        WaterSettings { objectName: "waterSettings"; water: root.water; width: implicitWidth; height: implicitHeight }
        AlarmSettings { objectName: "alarmSettings"; alarm: root.alarm; width: implicitWidth; height: implicitHeight }
        TimerPanel { objectName: "timerPanel"; timer: root.timer; width: implicitWidth; height: implicitHeight }
        HabitsPanel { objectName: "habitsPanel"; habits: root.habits; width: implicitWidth; height: implicitHeight }
        BreakSettings { objectName: "eyeBreakSettings"; reminder: root.eyeBreak; width: implicitWidth; height: implicitHeight }
        BreakSettings { objectName: "standUpSettings"; reminder: root.standUp; isForEyes: false; width: implicitWidth; height: implicitHeight }
        FocusStatsPanel { objectName: "focusStatsPanel"; pomodoro: root.pomodoro; width: implicitWidth; height: implicitHeight }
        StopwatchPanel { objectName: "stopwatchPanel"; stopwatch: root.stopwatch; width: implicitWidth; height: implicitHeight }
    }
}
