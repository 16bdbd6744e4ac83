// The next seven days.
ForecastTile {
    entries: weather.texts.days
    summary: weather.texts.daysSummary
    hasLows: true
}
