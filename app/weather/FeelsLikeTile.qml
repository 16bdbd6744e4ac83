import QtQuick
import Ambrel.Kit

// The temperature as it feels.
WeatherFrame {
    value: texts.feelsLike
    valueRole: Theme.clock
    subLine: texts.feelsLikeDetail
    problem: texts.problem !== "" ? texts.problem : value === "" ? qsTr("No reading") : ""
    tip: isUnavailable ? "" : texts.feelsLikeSummary
}
