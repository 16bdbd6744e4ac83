import QtQuick
import Ambrel.Kit
import Ambrel.Weather

// What all weather tiles share: the model, its age, and what is wrong when there is nothing to show.
TileFrame {
    id: root

    required property WeatherModel weather
    // Whether somebody can see the tile.
    property bool live: false

    problem: weather.problem
    staleSince: weather.texts.staleSince

    LiveTimeline {
        schedule: LiveTimeline.EveryMinute
        active: root.live
        onTicked: root.weather.update()
    }
}
