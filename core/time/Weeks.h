#pragma once
// Weeks and the days of a month's page.

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "core/base/Calendar.h"

namespace ambrel {

// How weeks are numbered: from Monday on, the first with four days of the year (ISO 8601), or as the locale does.
enum class WeekNumbering { iso, locale };

// A date without a zone.
struct Date {
  int year = 1970, month = 1, day = 1;
  friend auto operator<=>(const Date&, const Date&) = default;
};
Date dateOf(const Calendar& calendar, Instant instant);
// "2026-11-22", as Calendar::dayKey has it; and back. Absent for anything else, and for a date that is none.
std::string keyOf(const Date& date);
std::optional<Date> dateOfKey(std::string_view key);
Date daysLater(const Date& date, int days);
// The same day of another month, or its last.
Date monthsLater(const Date& date, int months);
int daysBetween(const Date& from, const Date& to);
int isoWeekday(const Date& date);  // 1 Monday to 7 Sunday
// Its noon, which every zone has: for texts of the date.
Instant noonOf(const Calendar& calendar, const Date& date);

struct WeekOfYear {
  int year = 1970, week = 1;  // the year that the week belongs to
  friend bool operator==(const WeekOfYear&, const WeekOfYear&) = default;
};
WeekOfYear weekOf(const Date& date, WeekNumbering numbering, const std::string& locale);
// Monday, or the locale's first day.
int firstWeekday(WeekNumbering numbering, const Calendar& calendar);

// From Monday to Sunday: the days on which the locale's region does not work.
std::array<bool, 7> daysOff(const std::string& locale);

// Six weeks from the locale's first day on, which show the whole month.
struct MonthPage {
  std::array<Date, 42> days;
  std::array<int, 6> weeks;
  friend bool operator==(const MonthPage&, const MonthPage&) = default;
};
MonthPage monthPage(int year, int month, WeekNumbering numbering, const Calendar& calendar);

}  // namespace ambrel
