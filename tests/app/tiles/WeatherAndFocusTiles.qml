import QtQuick
import Ambrel.Focus
import Ambrel.Kit
import Ambrel.Weather

// Every tile of both families, as the bar would show them.
Rectangle {
    id: root

    required property WeatherModel weather
    required property WeatherModel secondCity
    required property PomodoroTimer pomodoro
    required property Stopwatch stopwatch
    required property WaterTracker water
    required property QuickTimer timer
    required property AlarmClock alarm
    required property BreakReminder eyeBreak
    required property BreakReminder standUp
    required property BreathingExercise breathing
    required property HabitStore habits
    required property MoodLog mood

    width: 1300
    height: 312
    color: Theme.bar

    Flow {
        anchors.fill: parent
        anchors.margins: 12
        spacing: 8

        WeatherWidget { objectName: "weather"; weather: root.weather; live: true }
        HourlyWidget { objectName: "hourly"; weather: root.weather; live: true }
        SunWidget { objectName: "sun"; weather: root.weather; live: true }
        WindWidget { objectName: "wind"; weather: root.weather; live: true }
        RainSoonWidget { objectName: "rainSoon"; weather: root.weather; live: true }
        UVIndexWidget { objectName: "uvIndex"; weather: root.weather; live: true }
        AirQualityWidget { objectName: "airQuality"; weather: root.weather; live: true }
        DailyForecastWidget { objectName: "dailyForecast"; weather: root.weather; live: true }
        FeelsLikeWidget { objectName: "feelsLike"; weather: root.weather; live: true }
        SecondCityWidget { objectName: "secondCity"; weather: root.secondCity; live: true }
        PomodoroWidget { objectName: "pomodoro"; pomodoro: root.pomodoro; live: true }
        StopwatchWidget { objectName: "stopwatch"; stopwatch: root.stopwatch; live: true }
        WaterWidget { objectName: "water"; water: root.water }
        TimerWidget { objectName: "timer"; timer: root.timer; live: true }
        AlarmWidget { objectName: "alarm"; alarm: root.alarm }
        EyeBreakWidget { objectName: "eyeBreak"; reminder: root.eyeBreak; live: true }
        StandUpWidget { objectName: "standUp"; reminder: root.standUp; live: true }
        BreathingWidget { objectName: "breathing"; breathing: root.breathing }
        HabitsWidget { objectName: "habits"; habits: root.habits }
        MoodWidget { objectName: "mood"; mood: root.mood }
        FocusStatsWidget { objectName: "focusStats"; pomodoro: root.pomodoro }
        WeatherWidget { objectName: "smallWeather"; weather: root.weather; span: TileFrame.Small; live: true }
        WindWidget { objectName: "smallWind"; weather: root.weather; span: TileFrame.Small; live: true }
        PomodoroWidget { objectName: "smallPomodoro"; pomodoro: root.pomodoro; span: TileFrame.Small; live: true }
        WaterWidget { objectName: "smallWater"; water: root.water; span: TileFrame.Small }
        AlarmWidget { objectName: "smallAlarm"; alarm: root.alarm; span: TileFrame.Small }
        MoodWidget { objectName: "smallMood"; mood: root.mood; span: TileFrame.Small }
    }
}
