#pragma once
// The user's zone and locale: local days and hours, and what texts are written with.

#include <memory>
#include <optional>
#include <string>

#include "core/base/Instant.h"

namespace ambrel {

// A cheap, immutable value; safe to use from several threads.
class Calendar {
 public:
  // zone: an IANA name ("Europe/Berlin"); an unknown name gives UTC.
  // locale: an ICU or POSIX name ("de_DE", "de_DE.UTF-8"); "", "C" and "POSIX" give "en_US".
  Calendar(const std::string& zone, const std::string& locale);

  // From the values of TZ, LC_ALL, LC_TIME and LANG; an empty tz is the host's own zone.
  static Calendar fromVariables(const std::string& tz, const std::string& lcAll, const std::string& lcTime,
                                const std::string& lang);

  struct Fields {
    int year = 1970, month = 1, day = 1;  // month 1 to 12, day 1 to 31
    int hour = 0, minute = 0, second = 0;
    int weekday = 4;    // ISO: 1 Monday to 7 Sunday
    int dayOfYear = 1;  // 1 to 366
    friend bool operator==(const Fields&, const Fields&) = default;
  };
  Fields fields(Instant instant) const;

  // The instant of a local date and time. A time that a change of clocks skips is read with the offset
  // before the change; a time that occurs twice is the first of the two. Days and months may overflow
  // (day 32 of January is the 1st of February).
  Instant instant(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) const;

  // The first instant of the local day; of the day `days` later or earlier.
  Instant startOfDay(Instant instant) const;
  Instant startOfDay(Instant instant, int days) const;
  // The beginning of the local clock hour that contains the instant.
  Instant startOfHour(Instant instant) const;
  // ISO weekday on which the locale's week begins.
  int firstWeekday() const;
  // The offset that the zone adds to UTC at that instant.
  std::chrono::seconds offset(Instant instant) const;

  // "2026-11-21", the key under which models keep a day.
  std::string dayKey(Instant instant) const;

  const std::string& zone() const;
  const std::string& locale() const;

  struct Impl;
  const Impl& impl() const { return *impl_; }

 private:
  std::shared_ptr<const Impl> impl_;
};

}  // namespace ambrel
