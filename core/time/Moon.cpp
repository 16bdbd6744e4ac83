#include "core/time/Moon.h"

#include <cmath>
#include <numbers>
#include <span>

namespace ambrel {
namespace {

constexpr double unixEpochJulian = 2440587.5;
constexpr double firstNewMoon = 2451550.09766;  // in 2000, dynamical time
constexpr double monthDays = 29.530588861;
constexpr double secondsOfDay = 86400;
// Dynamical time minus universal time, about, in the years around 2020.
constexpr double dynamicalSeconds = 70;

double radians(double degrees) { return std::fmod(degrees, 360.0) * std::numbers::pi / 180; }
double sine(double degrees) { return std::sin(radians(degrees)); }
double cosine(double degrees) { return std::cos(radians(degrees)); }

double julianDay(Instant instant) { return unixEpochJulian + (unixSeconds(instant) + dynamicalSeconds) / secondsOfDay; }
Instant instantOf(double julian) {
  return instantFromUnixSeconds(std::round((julian - unixEpochJulian) * secondsOfDay - dynamicalSeconds));
}

// A periodic term: days, and how often the anomalies of sun and moon and the moon's argument of latitude count in its
// angle. With each anomaly of the sun comes a factor for the changing eccentricity of the earth's orbit.
struct Term {
  double days;
  int sun, moon, latitude;
};

constexpr Term newMoonTerms[] = {
    {-0.40720, 0, 1, 0}, {0.17241, 1, 0, 0},    {0.01608, 0, 2, 0},   {0.01039, 0, 0, 2},   {0.00739, -1, 1, 0},
    {-0.00514, 1, 1, 0}, {0.00208, 2, 0, 0},    {-0.00111, 0, 1, -2}, {-0.00057, 0, 1, 2},  {0.00056, 1, 2, 0},
    {-0.00042, 0, 3, 0}, {0.00042, 1, 0, 2},    {0.00038, 1, 0, -2},  {-0.00024, -1, 2, 0}, {-0.00007, 2, 1, 0},
    {0.00004, 0, 2, -2}, {0.00004, 3, 0, 0},    {0.00003, 1, 1, -2},  {0.00003, 0, 2, 2},   {-0.00003, 1, 1, 2},
    {0.00003, -1, 1, 2}, {-0.00002, -1, 1, -2}, {-0.00002, 1, 3, 0},  {0.00002, 0, 4, 0},
};
// Where they are others than those of the new moon.
constexpr Term fullMoonTerms[] = {
    {-0.40614, 0, 1, 0}, {0.17302, 1, 0, 0},  {0.01614, 0, 2, 0}, {0.01043, 0, 0, 2},
    {0.00734, -1, 1, 0}, {-0.00515, 1, 1, 0}, {0.00209, 2, 0, 0},
};
constexpr Term quarterTerms[] = {
    {-0.62801, 0, 1, 0},   {0.17172, 1, 0, 0},  {-0.01183, 1, 1, 0},  {0.00862, 0, 2, 0},  {0.00804, 0, 0, 2},
    {0.00454, -1, 1, 0},   {0.00204, 2, 0, 0},  {-0.00180, 0, 1, -2}, {-0.00070, 0, 1, 2}, {-0.00040, 0, 3, 0},
    {-0.00034, -1, 2, 0},  {0.00032, 1, 0, 2},  {0.00032, 1, 0, -2},  {-0.00028, 2, 1, 0}, {0.00027, 1, 2, 0},
    {-0.00005, -1, 1, -2}, {0.00004, 0, 2, 2},  {-0.00004, 1, 1, 2},  {0.00004, -2, 1, 0}, {0.00003, 1, 1, -2},
    {0.00003, 3, 0, 0},    {0.00002, 0, 2, -2}, {0.00002, -1, 1, 2},  {-0.00002, 1, 3, 0},
};

// `quarters` since the new moon of 6 January 2000.
MoonEvent eventOf(long long quarters) {
  const double k = static_cast<double>(quarters) / 4;
  const double t = k / 1236.85;
  const double eccentricity = 1 - 0.002516 * t - 0.0000074 * t * t;
  const double sun = 2.5534 + 29.10535670 * k - 0.0000014 * t * t;
  const double moon = 201.5643 + 385.81693528 * k + 0.0107582 * t * t + 0.00001238 * t * t * t;
  const double latitude = 160.7108 + 390.67050284 * k - 0.0016118 * t * t - 0.00000227 * t * t * t;
  const double node = 124.7746 - 1.56375588 * k + 0.0020672 * t * t;
  const auto quarter = static_cast<MoonQuarter>(((quarters % 4) + 4) % 4);

  double day = firstNewMoon + monthDays * k + 0.00015437 * t * t - 0.00000015 * t * t * t - 0.00017 * sine(node);
  const auto add = [&](std::span<const Term> terms) {
    for (const Term& term : terms)
      day += term.days * std::pow(eccentricity, std::abs(term.sun)) *
             sine(term.sun * sun + term.moon * moon + term.latitude * latitude);
  };
  switch (quarter) {
    case MoonQuarter::newMoon:
      add(newMoonTerms);
      break;
    case MoonQuarter::fullMoon:
      add(fullMoonTerms);
      add(std::span(newMoonTerms).subspan(std::size(fullMoonTerms)));
      break;
    case MoonQuarter::firstQuarter:
    case MoonQuarter::lastQuarter: {
      add(quarterTerms);
      const double more = 0.00306 - 0.00038 * eccentricity * cosine(sun) + 0.00026 * cosine(moon) -
                          0.00002 * cosine(moon - sun) + 0.00002 * cosine(moon + sun) + 0.00002 * cosine(2 * latitude);
      day += quarter == MoonQuarter::firstQuarter ? more : -more;
      break;
    }
  }
  return {quarter, instantOf(day)};
}

// The count of the last quarter that is not after `now`.
long long lastQuarters(Instant now) {
  // The true quarters are up to 15 hours from the even ones.
  auto quarters = std::llround((julianDay(now) - firstNewMoon) / monthDays * 4) + 1;
  while (eventOf(quarters).at > now) --quarters;
  return quarters;
}

}  // namespace

MoonEvent lastMoonEvent(Instant now) { return eventOf(lastQuarters(now)); }

std::vector<MoonEvent> nextMoonEvents(Instant now, int count) {
  std::vector<MoonEvent> events;
  const auto last = lastQuarters(now);
  for (int i = 1; i <= count; ++i) events.push_back(eventOf(last + i));
  return events;
}

double moonIllumination(Instant now) {
  const double t = (julianDay(now) - 2451545.0) / 36525;
  const double elongation = 297.8501921 + 445267.1114034 * t - 0.0018819 * t * t;
  const double sun = 357.5291092 + 35999.0502909 * t;
  const double moon = 134.9633964 + 477198.8675055 * t + 0.0087414 * t * t;
  const double phase = 180 - elongation - 6.289 * sine(moon) + 2.100 * sine(sun) - 1.274 * sine(2 * elongation - moon) -
                       0.658 * sine(2 * elongation) - 0.214 * sine(2 * moon) - 0.110 * sine(elongation);
  return (1 + cosine(phase)) / 2;
}

std::string_view title(MoonQuarter quarter) {
  switch (quarter) {
    case MoonQuarter::newMoon:
      return "New Moon";
    case MoonQuarter::firstQuarter:
      return "First Quarter";
    case MoonQuarter::fullMoon:
      return "Full Moon";
    case MoonQuarter::lastQuarter:
      return "Last Quarter";
  }
  return {};
}

std::string_view moonName(const Calendar& calendar, Instant now) {
  const Instant day = calendar.startOfDay(now), nextDay = calendar.startOfDay(now, 1);
  // Seen from the end of the day: an event later today counts as well.
  const MoonEvent last = lastMoonEvent(nextDay - std::chrono::microseconds(1));
  if (last.at >= day) return title(last.quarter);
  switch (last.quarter) {
    case MoonQuarter::newMoon:
      return "Waxing Crescent";
    case MoonQuarter::firstQuarter:
      return "Waxing Gibbous";
    case MoonQuarter::fullMoon:
      return "Waning Gibbous";
    case MoonQuarter::lastQuarter:
      return "Waning Crescent";
  }
  return {};
}

}  // namespace ambrel
