import QtQuick
import Ambrel.Kit
import Ambrel.Model
import Ambrel.Weather

// Choosing the place, the unit and the air-quality scale.
Popover {
    id: root

    required property WeatherModel weather
    property bool hasScale: true
    readonly property int found: weather.searchResults.length
    readonly property real roomForResults: 6 * Math.max(44, Theme.rowTitle.line + Theme.small.line + Theme.space3)

    title: weather.texts.placeLabel
    symbol: "mappin"
    implicitHeight: header.height + field.y + field.height + Math.max(roomForResults, details.height) + foot.height + 3 * Theme.space3

    Connections {
        target: root.weather // qmllint disable
        function onPlaceChosen() {
            if (root.open)
                root.closeRequested();
        }
    }
    onAboutToOpen: {
        field.text = "";
        field.forceActiveFocus();
    }

    Field {
        id: field
        x: Theme.space4
        y: Theme.space3
        width: parent.width - 2 * Theme.space4
        isSearch: true
        hint: qsTr("Search for a city")
        maximumLength: 100
        focus: true
        onTextChanged: root.weather.search(text)
        onAccepted: root.weather.chooseFirst()
    }

    Column {
        id: list

        visible: field.text !== ""
        x: Theme.space2
        width: parent.width - 2 * Theme.space2
        anchors.top: field.bottom
        anchors.topMargin: Theme.space2

        Repeater {
            model: root.weather.searchResults

            ListRow {
                required property var modelData
                required property int index

                width: list.width
                symbol: "mappin"
                title: modelData.name
                detail: modelData.detail
                onClicked: root.weather.choose(index)
            }
        }
        Label {
            visible: text !== ""
            x: Theme.space2
            width: parent.width - 2 * Theme.space2
            text: root.weather.searchNote
            role: Theme.small
            color: Theme.ink2
            wrapMode: Text.WordWrap
        }
    }

    Column {
        id: details

        visible: field.text === ""
        x: Theme.space4
        width: parent.width - 2 * Theme.space4
        anchors.top: field.bottom
        anchors.topMargin: Theme.space3
        spacing: Theme.space3

        Section {
            SettingRow {
                key: "weatherFahrenheit"
                title: qsTr("Unit")
                options: [qsTr("Celsius"), qsTr("Fahrenheit")]
                values: [false, true]
            }
            SettingRow {
                key: "airQualityScale"
                visible: root.hasScale
                title: qsTr("Air quality")
                options: [qsTr("US"), qsTr("European")]
            }
        }
        Column {
            width: parent.width
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
    }

    TipLabel {
        id: foot

        x: Theme.space4
        width: parent.width - 2 * Theme.space4
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.space3
        text: (root.weather.texts.updated === "" ? "" : root.weather.texts.updated + " · ") + qsTr("Weather data by Open-Meteo.com")
        role: Theme.subLine
        color: Theme.ink3
    }
}
