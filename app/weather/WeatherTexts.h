#pragma once
// What the weather tiles show, in words and figures of the user's own form. Empty where nothing is known.

#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

#include "core/weather/WeatherSchedule.h"

namespace ambrel {

struct WeatherTexts {
  Q_GADGET
  QML_VALUE_TYPE(weatherTexts)
  // Why there is no forecast; empty when there is one.
  Q_PROPERTY(QString problem MEMBER problem FINAL)
  Q_PROPERTY(QString place MEMBER place FINAL)
  Q_PROPERTY(QString placeLabel MEMBER placeLabel FINAL)
  Q_PROPERTY(QString temperature MEMBER temperature FINAL)
  Q_PROPERTY(QString condition MEMBER condition FINAL)
  Q_PROPERTY(QString symbol MEMBER symbol FINAL)
  Q_PROPERTY(QString highLow MEMBER highLow FINAL)
  Q_PROPERTY(QString feelsLike MEMBER feelsLike FINAL)
  Q_PROPERTY(QString feelsLikeDetail MEMBER feelsLikeDetail FINAL)
  Q_PROPERTY(QString wind MEMBER wind FINAL)
  Q_PROPERTY(QString windUnit MEMBER windUnit FINAL)
  Q_PROPERTY(QString windFrom MEMBER windFrom FINAL)
  Q_PROPERTY(qreal windDegrees MEMBER windDegrees FINAL)
  Q_PROPERTY(QString uvIndex MEMBER uvIndex FINAL)
  Q_PROPERTY(QString uvLabel MEMBER uvLabel FINAL)
  Q_PROPERTY(int uvBand MEMBER uvBand FINAL)
  Q_PROPERTY(QString sunTitle MEMBER sunTitle FINAL)
  Q_PROPERTY(QString sunTime MEMBER sunTime FINAL)
  Q_PROPERTY(QString sunDetail MEMBER sunDetail FINAL)
  Q_PROPERTY(qreal dayPercent MEMBER dayPercent FINAL)
  Q_PROPERTY(QString rainTitle MEMBER rainTitle FINAL)
  Q_PROPERTY(QString rainDetail MEMBER rainDetail FINAL)
  Q_PROPERTY(bool isWet MEMBER isWet FINAL)
  Q_PROPERTY(QString airValue MEMBER airValue FINAL)
  Q_PROPERTY(QString airLabel MEMBER airLabel FINAL)
  Q_PROPERTY(QString airScale MEMBER airScale FINAL)
  Q_PROPERTY(int airBand MEMBER airBand FINAL)
  Q_PROPERTY(QString particles MEMBER particles FINAL)
  Q_PROPERTY(QString localTime MEMBER localTime FINAL)
  Q_PROPERTY(QString summary MEMBER summary FINAL)
  Q_PROPERTY(QString feelsLikeSummary MEMBER feelsLikeSummary FINAL)
  Q_PROPERTY(QString uvSummary MEMBER uvSummary FINAL)
  Q_PROPERTY(QString airSummary MEMBER airSummary FINAL)
  Q_PROPERTY(QString hoursSummary MEMBER hoursSummary FINAL)
  Q_PROPERTY(QString daysSummary MEMBER daysSummary FINAL)
  Q_PROPERTY(QVariantList details MEMBER details FINAL)
  Q_PROPERTY(QVariantList hours MEMBER hours FINAL)
  Q_PROPERTY(QVariantList days MEMBER days FINAL)
  Q_PROPERTY(QString staleSince MEMBER staleSince FINAL)
  Q_PROPERTY(QString airStaleSince MEMBER airStaleSince FINAL)
  Q_PROPERTY(QString updated MEMBER updated FINAL)

 public:
  QString problem;                                  // "Offline"
  QString place, placeLabel;                        // "London", "London, United Kingdom"
  QString temperature, condition, symbol, highLow;  // "21°", "Partly cloudy", "cloud.sun.fill", "25° / 14°"
  QString feelsLike, feelsLikeDetail, humidity, dewPoint;
  QString wind, windUnit, windFrom;  // "14", "km/h", "SW"
  qreal windDegrees = 0;
  QString uvIndex, uvLabel, uvMax;
  int uvBand = -1;
  QString sunTitle, sunTime, sunDetail;  // "Sunset", "21:12", "Day 16 h 14 min"
  qreal dayPercent = -1;                 // below zero while the sun is down
  QString rainTitle, rainDetail;
  bool isWet = false;
  QString airValue, airLabel, airScale, particles;
  int airBand = -1;
  QString localTime;  // at the place
  // What a tile's tip says, and what is read out where a tile has columns.
  QString summary, feelsLikeSummary, uvSummary, airSummary, hoursSummary, daysSummary;
  QVariantList details;      // {"name", "value"}: readings that no tile has room for
  QVariantList hours, days;  // {"time" or "day", "symbol", "condition", "temperature" or "high" and "low"}
  QString staleSince;        // "46 min ago"; empty while fresh
  QString airStaleSince;     // the air quality has an answer of its own
  QString updated;           // "Updated 10:41"

  bool operator==(const WeatherTexts&) const = default;
};

struct WeatherReading {
  std::optional<Forecast> forecast{};
  // Of the last request for the forecast; absent when it was answered, and before the first.
  std::optional<WeatherFailure> failure{};
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
