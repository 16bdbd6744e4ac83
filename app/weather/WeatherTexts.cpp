#include "app/weather/WeatherTexts.h"

#include <QCoreApplication>
#include <cmath>

#include "app/base/StoredValue.h"
#include "app/web/Fetcher.h"
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
  for (const WeatherDetail& row :
       {WeatherDetail{tr("Today"), out.highLow}, WeatherDetail{tr("Air"), out.particles},
        WeatherDetail{tr("Humidity"), out.humidity}, WeatherDetail{tr("Dew point"), out.dewPoint},
        WeatherDetail{tr("UV index"), out.uvMax}, WeatherDetail{out.sunTitle, out.sunTime}})
    if (!row.value.isEmpty()) out.details.append(QVariant::fromValue(row));
}

void fillLists(const Forecast& f, const Calendar& calendar, const Calendar& place, Instant now, WeatherTexts& out) {
  const auto degrees = [&](double value) { return toQString(degreesText(calendar, value)); };
  const auto add = [](const ForecastEntry& entry, QVariantList& entries, QString& summary) {
    entries.append(QVariant::fromValue(entry));
    const QString words = joined({entry.time, entry.figure, entry.low, entry.condition}, QStringLiteral(" "));
    summary = joined({summary, words});
  };
  for (const auto& hour : upcomingHours(f, now))
    add({.time = toQString(formattedDate(place, hour.date, "j")),
         .symbol = toQString(weatherSymbol(hour.code)),
         .condition = toQString(weatherText(hour.code)),
         .figure = degrees(hour.temperature)},
        out.hours, out.hoursSummary);
  for (const auto& day : upcomingDays(f, place, now))
    add({.time = toQString(formattedDate(place, day.date, "EEE")),
         .symbol = toQString(weatherSymbol(day.code)),
         .condition = toQString(weatherText(day.code)),
         .figure = degrees(day.high),
         .low = degrees(day.low)},
        out.days, out.daysSummary);
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
    out.problem = fetchProblem(reading.failure, reading.isOnline);
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
