import QtQuick
import Ambrel.Kit
import Ambrel.Weather

// The readings that no tile has room for.
Column {
    id: root

    required property WeatherModel weather

    spacing: 2

    Repeater {
        model: root.weather.texts.details

        DetailRow {
            required property var modelData
            title: modelData.name
            figure: modelData.value
            role: Theme.small
        }
    }
}
