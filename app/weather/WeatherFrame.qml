import QtQuick
import Ambrel.Kit
import Ambrel.Weather

// What all weather tiles share: the model, its age, and what is wrong when there is nothing to show.
TileFrame {
    id: root

    required property WeatherArea area
    property WeatherModel weather: area.main

    panel: Qt.resolvedUrl("WeatherPanel.qml")
    panelProperties: ({
            weather: weather
        })

    problem: weather.texts.problem
    staleSince: weather.texts.staleSince

    LiveTimeline {
        schedule: LiveTimeline.EveryMinute
        active: root.live
        onTicked: root.weather.update()
    }
}
