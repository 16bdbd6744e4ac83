// The weather and the time of another place.
SkyTile {
    weather: area.second
    panelProperties: ({
            weather: weather,
            hasScale: false
        })
    name: texts.place
    ownSymbol: "building.2"
    fact: isWide ? texts.localTime : ""
    // The picture shows the sky where there is no room for both.
    subLine: isWide ? texts.condition : texts.localTime
}
