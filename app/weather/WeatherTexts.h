#pragma once
// What the weather tiles show, in words and figures of the user's own form. Empty where nothing is known.

#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

#include "app/base/Face.h"
#include "core/weather/WeatherSchedule.h"

namespace ambrel {

// An hour or a day of the forecast.
struct ForecastEntry {
  Q_GADGET
  QML_VALUE_TYPE(forecastEntry)
 public:
  FACE_FIELDS(QString, time, symbol, condition);  // "14" or "Wed", "cloud.rain.fill", "Light rain"
  FACE_FIELDS(QString, figure, low);              // the temperature, or a day's highest and lowest
  bool operator==(const ForecastEntry&) const = default;
};

// A reading that no tile has room for.
struct WeatherDetail {
  Q_GADGET
  QML_VALUE_TYPE(weatherDetail)
 public:
  FACE_FIELDS(QString, name, value);
  bool operator==(const WeatherDetail&) const = default;
};

struct WeatherTexts {
  Q_GADGET
  QML_VALUE_TYPE(weatherTexts)
 public:
  FACE_FIELDS(QString, problem);            // why there is no forecast ("Offline"); empty when there is one
  FACE_FIELDS(QString, place, placeLabel);  // "London", "London, United Kingdom"
  // "21°", "Partly cloudy", "cloud.sun.fill", "25° / 14°"
  FACE_FIELDS(QString, temperature, condition, symbol, highLow);
  FACE_FIELDS(QString, feelsLike, feelsLikeDetail);
  QString humidity{}, dewPoint{};
  FACE_FIELDS(QString, wind, windUnit, windFrom);  // "14", "km/h", "SW"
  FACE_FIELDS(qreal, windDegrees);
  FACE_FIELDS(QString, uvIndex, uvLabel);
  QString uvMax{};
  FACE_FIELD(int, uvBand, -1);
  FACE_FIELDS(QString, sunTitle, sunTime, sunDetail);  // "Sunset", "21:12", "Day 16 h 14 min"
  FACE_FIELD(qreal, dayPercent, -1);                   // below zero while the sun is down
  FACE_FIELDS(QString, rainTitle, rainDetail);
  FACE_FIELDS(bool, isWet);
  FACE_FIELDS(QString, airValue, airLabel, airScale, particles);
  FACE_FIELD(int, airBand, -1);
  FACE_FIELDS(QString, localTime);  // at the place
  // What a tile's tip says, and what is read out where a tile has columns.
  FACE_FIELDS(QString, summary, feelsLikeSummary, uvSummary, airSummary, hoursSummary, daysSummary);
  FACE_FIELDS(QVariantList, details);      // WeatherDetail
  FACE_FIELDS(QVariantList, hours, days);  // ForecastEntry
  FACE_FIELDS(QString, staleSince);        // "46 min ago"; empty while fresh
  FACE_FIELDS(QString, airStaleSince);     // the air quality has an answer of its own
  FACE_FIELDS(QString, updated);           // "Updated 10:41"

  bool operator==(const WeatherTexts&) const = default;
};

struct WeatherReading {
  std::optional<Forecast> forecast{};
  // Of the last request for the forecast; absent when it was answered, and before the first.
  std::optional<FetchFailure> failure{};
  bool isOnline = true;         // as the desktop says
  bool usesFahrenheit = false;  // what the forecast was asked for in
  std::optional<Instant> updatedAt{};
  std::optional<AirQuality> airQuality{};
  std::optional<Instant> airUpdatedAt{};
  AirQualityScale scale = AirQualityScale::us;
};

WeatherTexts weatherTexts(const WeatherPlace& place, const WeatherReading& reading, const Calendar& calendar,
                          Instant now);

}  // namespace ambrel
