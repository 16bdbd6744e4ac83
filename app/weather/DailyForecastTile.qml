// The next seven days.
ForecastTile {
    entries: texts.days
    summary: texts.daysSummary
    hasLows: true
}
