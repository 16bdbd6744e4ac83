// The present weather of the chosen place.
SkyTile {
    name: isNarrow ? title : weather.texts.place
    ownSymbol: "mappin"
    fact: isWide ? weather.texts.highLow : ""
    subLine: weather.texts.condition
}
