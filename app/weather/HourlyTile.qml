// The next hours.
ForecastTile {
    entries: weather.texts.hours
    summary: weather.texts.hoursSummary
}
