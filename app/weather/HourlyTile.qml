// The next hours.
ForecastTile {
    entries: texts.hours
    summary: texts.hoursSummary
}
