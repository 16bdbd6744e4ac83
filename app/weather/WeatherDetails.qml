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

        Item {
            id: line

            required property var modelData

            width: root.width
            height: Theme.small.line

            Label {
                text: line.modelData.name
                role: Theme.small
                color: Theme.ink2
            }
            Label {
                text: line.modelData.value
                role: Theme.small
                anchors.right: parent.right
            }
        }
    }
}
