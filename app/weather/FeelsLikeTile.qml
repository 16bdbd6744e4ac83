import QtQuick
import Ambrel.Kit

// The temperature as it feels.
WeatherFrame {
    value: weather.texts.feelsLike
    valueRole: Theme.clock
    subLine: weather.texts.feelsLikeDetail
    problem: weather.texts.problem !== "" ? weather.texts.problem : value === "" ? qsTr("No reading") : ""
    tip: isUnavailable ? "" : weather.texts.feelsLikeSummary
}
