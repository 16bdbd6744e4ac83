import QtQuick
import Ambrel.Dock
import Ambrel.Weather

TileSet {
    id: root

    readonly property bool live: context.widgetsActive

    tiles: ({
            "airQuality": airQualityTile,
            "dailyForecast": dailyForecastTile,
            "feelsLike": feelsLikeTile,
            "hourly": hourlyTile,
            "rainSoon": rainSoonTile,
            "secondCity": secondCityTile,
            "sun": sunTile,
            "uvIndex": uvIndexTile,
            "weather": weatherTile,
            "wind": windTile
        })

    readonly property Component weatherTile: WeatherWidget {
        weather: root.context.weather.main
        live: root.live
    }
    readonly property Component hourlyTile: HourlyWidget {
        weather: root.context.weather.main
        live: root.live
    }
    readonly property Component sunTile: SunWidget {
        weather: root.context.weather.main
        live: root.live
    }
    readonly property Component windTile: WindWidget {
        weather: root.context.weather.main
        live: root.live
    }
    readonly property Component rainSoonTile: RainSoonWidget {
        weather: root.context.weather.main
        live: root.live
    }
    readonly property Component uvIndexTile: UVIndexWidget {
        weather: root.context.weather.main
        live: root.live
    }
    readonly property Component airQualityTile: AirQualityWidget {
        weather: root.context.weather.main
        live: root.live
    }
    readonly property Component dailyForecastTile: DailyForecastWidget {
        weather: root.context.weather.main
        live: root.live
    }
    readonly property Component feelsLikeTile: FeelsLikeWidget {
        weather: root.context.weather.main
        live: root.live
    }
    readonly property Component secondCityTile: SecondCityWidget {
        weather: root.context.weather.second
        live: root.live
    }
}
