#include "core/telemetry/ThermalSensors.h"

#include <algorithm>
#include <charconv>

#include "core/base/Text.h"

namespace ambrel {
namespace {

constexpr double coldest = -60, hottest = 180;
// So close to being slowed down it is warm; so close to turning itself off it is critical.
constexpr double nearSlowing = 5, nearCritical = 3;
// Of a processor, and how far below it the other levels begin.
constexpr double usualLimit = 95, throttles = 5, isWarm = 15;

void lower(std::optional<double>& threshold, double celsius) {
  threshold = std::min(threshold.value_or(celsius), celsius);
}

ThermalLevel levelOf(const ThermalSensor& sensor) {
  if (sensor.critical && sensor.celsius >= *sensor.critical) return ThermalLevel::critical;
  if (sensor.slowing && sensor.celsius >= *sensor.slowing) return ThermalLevel::serious;
  if (sensor.slowing && sensor.celsius >= *sensor.slowing - nearSlowing) return ThermalLevel::fair;
  if (sensor.warm && sensor.celsius >= *sensor.warm) return ThermalLevel::fair;
  return ThermalLevel::nominal;
}

}  // namespace

std::optional<double> parseMillidegrees(std::string_view text) {
  const std::string_view digits = trimmed(text);
  long value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (digits.empty() || error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  const double celsius = static_cast<double>(value) / 1000;
  return celsius > coldest && celsius < hottest ? std::optional(celsius) : std::nullopt;
}

void addTrip(ThermalSensor& sensor, std::string_view type, double celsius, bool userSpace) {
  if (celsius <= 0) return;  // a trip point that is switched off
  if (type == "critical")
    lower(sensor.critical, celsius - nearCritical);
  else if (type == "hot")
    lower(sensor.critical, celsius);
  else if (type == "passive")
    lower(userSpace ? sensor.warm : sensor.slowing, celsius);
  else if (type == "active")
    lower(sensor.warm, celsius);
}

ThermalSensor processorSensor(double celsius, std::optional<double> limit) {
  const double highest = limit && *limit > 0 ? *limit : usualLimit;
  return {.celsius = celsius, .warm = highest - isWarm, .slowing = highest - throttles, .critical = highest};
}

std::optional<ThermalReading> thermalReading(const std::vector<ThermalSensor>& sensors) {
  if (sensors.empty()) return std::nullopt;
  ThermalReading reading;
  for (const ThermalSensor& sensor : sensors) {
    reading.level = std::max(reading.level, levelOf(sensor));
    reading.celsius = std::max(reading.celsius.value_or(sensor.celsius), sensor.celsius);
  }
  return reading;
}

}  // namespace ambrel
