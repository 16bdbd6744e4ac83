// The weather and the time of another place.
SkyTile {
    weather: area.second
    panelProperties: ({
            weather: weather,
            hasScale: false
        })
    name: weather.texts.place
    ownSymbol: "building.2"
    fact: isWide ? weather.texts.localTime : ""
    // The picture shows the sky where there is no room for both.
    subLine: isWide ? weather.texts.condition : weather.texts.localTime
}
