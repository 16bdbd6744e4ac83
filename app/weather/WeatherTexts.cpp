#include "app/weather/WeatherTexts.h"

#include <QCoreApplication>
#include <cmath>

#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"

namespace ambrel {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("Weather", text); }

QString joined(const QStringList& parts, const QString& separator = QStringLiteral(", ")) {
  QStringList present;
  for (const QString& part : parts)
    if (!part.isEmpty()) present.append(part);
  return present.join(separator);
}

QString ageIfStale(std::optional<Instant> updatedAt, const Calendar& calendar, Instant now) {
  return updatedAt && isWeatherStale(*updatedAt, now) ? toQString(relativeAge(calendar, *updatedAt, now)) : QString();
}

void fillAir(const WeatherReading& reading, const Calendar& calendar, Instant now, WeatherTexts& out) {
  out.airScale = toQString(label(reading.scale));
  if (!reading.airQuality) return;
  out.airStaleSince = ageIfStale(reading.airUpdatedAt, calendar, now);
  if (const auto value = airQualityValue(*reading.airQuality, reading.scale)) {
    out.airBand = airQualityBand(reading.scale, *value);
    out.airValue = toQString(decimal(calendar, std::round(*value), 0));
    out.airLabel = toQString(airQualityLabel(reading.scale, out.airBand));
    out.airSummary = out.airScale + QLatin1Char(' ') + out.airValue + QStringLiteral(", ") + out.airLabel;
  }
  if (reading.airQuality->pm25)
    out.particles = tr("PM2.5 %1 µg/m³").arg(toQString(decimal(calendar, *reading.airQuality->pm25, 1)));
}

void fillSun(const Forecast& forecast, const Calendar& place, Instant now, WeatherTexts& out) {
  const SunSummary sun = sunSummary(forecast, now);
  switch (sun.kind) {
    case SunSummary::Kind::unknown:
      return;
    case SunSummary::Kind::rises:
      out.sunTitle = tr("Sunrise");
      break;
    case SunSummary::Kind::sets:
      out.sunTitle = tr("Sunset");
      break;
    case SunSummary::Kind::staysUp:
      out.sunTitle = tr("Polar day");
      break;
    case SunSummary::Kind::staysDown:
      out.sunTitle = tr("Polar night");
      break;
  }
  if (sun.next) out.sunTime = toQString(shortTime(place, *sun.next));
  if (sun.dayProgress) out.dayPercent = 100 * *sun.dayProgress;
  if (sun.kind == SunSummary::Kind::staysUp)
    out.sunDetail = tr("Sun stays up");
  else if (sun.kind == SunSummary::Kind::staysDown)
    out.sunDetail = tr("Sun stays down");
  else if (sun.dayLength)
    out.sunDetail = tr("Day %1").arg(toQString(spanText(*sun.dayLength)));
}

void fillNow(const Forecast& f, const WeatherReading& reading, const Calendar& calendar, const Calendar& place,
             Instant now, WeatherTexts& out) {
  const auto degrees = [&](std::optional<double> value) {
    return value ? toQString(degreesText(calendar, *value)) : QString();
  };
  out.temperature = degrees(f.temperature);
  out.condition = toQString(weatherText(f.code));
  out.symbol = toQString(weatherSymbol(f.code));
  const auto range = todaysRange(f, place, now);
  if (range.high && range.low) out.highLow = degrees(range.high) + QStringLiteral(" / ") + degrees(range.low);
  out.feelsLike = degrees(f.apparentTemperature);
  if (f.apparentTemperature && f.temperature)
    out.feelsLikeDetail = toQString(feelsLikeText(calendar, *f.apparentTemperature, *f.temperature));
  if (f.humidity) out.humidity = QStringLiteral("%1%").arg(toQString(decimal(calendar, std::round(*f.humidity), 0)));
  if (f.dewPoint) out.dewPoint = degrees(f.dewPoint);
  if (f.windSpeed) {
    out.wind = toQString(decimal(calendar, std::round(*f.windSpeed), 0));
    out.windUnit = reading.usesFahrenheit ? QStringLiteral("mph") : QStringLiteral("km/h");
  }
  if (f.windDirection) {
    out.windFrom = toQString(compassPoint(*f.windDirection));
    out.windDegrees = *f.windDirection;
  }
  if (f.uvIndex) {
    out.uvIndex = toQString(decimal(calendar, std::round(*f.uvIndex), 0));
    out.uvBand = UVScale::band(*f.uvIndex);
    out.uvLabel = toQString(UVScale::label(out.uvBand));
  }
  if (range.uvMax) out.uvMax = tr("Up to %1 today").arg(toQString(decimal(calendar, std::round(*range.uvMax), 0)));
  out.localTime = toQString(shortTime(place, now));
}

void fillSummaries(WeatherTexts& out) {
  out.summary = joined({out.placeLabel, out.temperature, out.condition, out.highLow, out.updated});
  if (!out.feelsLike.isEmpty())
    out.feelsLikeSummary = joined({out.place, tr("feels like %1").arg(out.feelsLike),
                                   out.humidity.isEmpty() ? QString() : tr("humidity %1").arg(out.humidity)});
  if (!out.uvIndex.isEmpty())
    out.uvSummary = joined({out.place, tr("UV index %1").arg(out.uvIndex), out.uvLabel, out.uvMax});
  const std::pair<QString, QString> rows[] = {{tr("Today"), out.highLow},     {tr("Air"), out.particles},
                                              {tr("Humidity"), out.humidity}, {tr("Dew point"), out.dewPoint},
                                              {tr("UV index"), out.uvMax},    {out.sunTitle, out.sunTime}};
  for (const auto& [name, value] : rows)
    if (!value.isEmpty())
      out.details.append(QVariantMap{{QStringLiteral("name"), name}, {QStringLiteral("value"), value}});
}

void fillLists(const Forecast& f, const Calendar& calendar, const Calendar& place, Instant now, WeatherTexts& out) {
  for (const auto& hour : upcomingHours(f, now))
    out.hours.append(QVariantMap{{QStringLiteral("time"), toQString(formattedDate(place, hour.date, "j"))},
                                 {QStringLiteral("symbol"), toQString(weatherSymbol(hour.code))},
                                 {QStringLiteral("condition"), toQString(weatherText(hour.code))},
                                 {QStringLiteral("temperature"), toQString(degreesText(calendar, hour.temperature))}});
  for (const auto& day : upcomingDays(f, place, now))
    out.days.append(QVariantMap{{QStringLiteral("day"), toQString(formattedDate(place, day.date, "EEE"))},
                                {QStringLiteral("symbol"), toQString(weatherSymbol(day.code))},
                                {QStringLiteral("condition"), toQString(weatherText(day.code))},
                                {QStringLiteral("high"), toQString(degreesText(calendar, day.high))},
                                {QStringLiteral("low"), toQString(degreesText(calendar, day.low))}});
  const auto spoken = [](const QVariantList& entries, const QStringList& keys) {
    QStringList parts;
    for (const QVariant& entry : entries) {
      QStringList words;
      for (const QString& key : keys) words.append(entry.toMap().value(key).toString());
      parts.append(joined(words, QStringLiteral(" ")));
    }
    return parts.join(QStringLiteral(", "));
  };
  out.hoursSummary =
      spoken(out.hours, {QStringLiteral("time"), QStringLiteral("temperature"), QStringLiteral("condition")});
  out.daysSummary = spoken(
      out.days, {QStringLiteral("day"), QStringLiteral("high"), QStringLiteral("low"), QStringLiteral("condition")});
}

}  // namespace

WeatherTexts weatherTexts(const WeatherPlace& placeOf, const WeatherReading& reading, const Calendar& calendar,
                          Instant now) {
  WeatherTexts out;
  out.place = toQString(placeOf.name);
  out.placeLabel = toQString(placeLabel(placeOf));
  fillAir(reading, calendar, now, out);
  const Forecast none;
  const Forecast& forecast = reading.forecast ? *reading.forecast : none;
  const auto rain = RainSoon::summary(forecast.rainSlots, forecast.rainChances, now, RainSoon::usualHorizon);
  out.rainTitle = toQString(rain.title);
  out.rainDetail = toQString(rain.detail);
  out.isWet = rain.isWet;
  if (!reading.forecast) {
    const bool isOffline = !reading.isOnline && reading.failure == WeatherFailure::unreached;
    out.problem = !reading.failure ? tr("Waiting for data") : isOffline ? tr("Offline") : tr("No answer yet");
    return out;
  }

  const Calendar place = placeCalendar(forecast, calendar);
  fillNow(forecast, reading, calendar, place, now, out);
  fillSun(forecast, place, now, out);
  fillLists(forecast, calendar, place, now, out);
  if (reading.updatedAt) out.updated = tr("Updated %1").arg(toQString(shortTime(calendar, *reading.updatedAt)));
  out.staleSince = ageIfStale(reading.updatedAt, calendar, now);
  fillSummaries(out);
  return out;
}

}  // namespace ambrel
