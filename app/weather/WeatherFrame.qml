import QtQuick
import Ambrel.Kit
import Ambrel.Weather

// What all weather tiles share: the model, its age, and what is wrong when there is nothing to show.
TileFrame {
    id: root

    required property WeatherArea area
    property WeatherModel weather: area.main
    property weatherTexts texts: weather.texts

    panel: Qt.resolvedUrl("WeatherPanel.qml")
    panelProperties: ({
            weather: weather
        })

    problem: texts.problem
    staleSince: texts.staleSince

    LiveTimeline {
        schedule: LiveTimeline.EveryMinute
        active: root.live
        onTicked: root.weather.update()
    }
}
