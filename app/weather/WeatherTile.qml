// The present weather of the chosen place.
SkyTile {
    name: isNarrow ? title : texts.place
    ownSymbol: "mappin"
    fact: isWide ? texts.highLow : ""
    subLine: texts.condition
}
