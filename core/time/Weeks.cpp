#include "core/time/Weeks.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>
#include <memory>
#include <unicode/calendar.h>
#include <unicode/gregocal.h>

namespace ambrel {
namespace {

using namespace std::chrono;

sys_days daysOf(const Date& date) { return sys_days(year(date.year) / date.month / date.day); }

Date dateOf(sys_days day) {
  const year_month_day date(day);
  return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day()))};
}

std::unique_ptr<icu::Calendar> calendarOf(const std::string& locale) {
  UErrorCode error = U_ZERO_ERROR;
  std::unique_ptr<icu::Calendar> calendar(
      icu::Calendar::createInstance(icu::Locale::createCanonical(locale.c_str()), error));
  return U_SUCCESS(error) ? std::move(calendar) : nullptr;
}

// ICU counts from Sunday, which is 1.
int isoOf(int day) { return day == UCAL_SUNDAY ? 7 : day - 1; }

// The week of a numbering whose weeks begin on `first`, and whose first has at least `least` days of the year.
WeekOfYear weekOf(sys_days day, int first, int least) {
  const auto beginOfFirstWeek = [&](int ofYear) {
    const auto newYear = sys_days(year(ofYear) / January / 1);
    const int sinceFirst = (static_cast<int>(weekday(newYear).iso_encoding()) - first + 7) % 7;
    return newYear - days(sinceFirst) + (7 - sinceFirst >= least ? days(0) : days(7));
  };
  int ofYear = static_cast<int>(year_month_day(day).year());
  if (day >= beginOfFirstWeek(ofYear + 1)) ++ofYear;
  if (day < beginOfFirstWeek(ofYear)) --ofYear;
  return {ofYear, static_cast<int>((day - beginOfFirstWeek(ofYear)).count() / 7) + 1};
}

}  // namespace

Date dateOf(const Calendar& calendar, Instant instant) {
  const auto f = calendar.fields(instant);
  return {f.year, f.month, f.day};
}

std::string keyOf(const Date& date) { return fmt::format("{:04}-{:02}-{:02}", date.year, date.month, date.day); }

std::optional<Date> dateOfKey(std::string_view key) {
  if (key.size() != 10 || key[4] != '-' || key[7] != '-') return std::nullopt;
  const auto number = [&](std::size_t from, std::size_t length) {
    int value = -1;
    const char* end = key.data() + from + length;
    return std::from_chars(key.data() + from, end, value).ptr == end ? value : -1;
  };
  const Date date{number(0, 4), number(5, 2), number(8, 2)};
  if (date.year < 1 || date.month < 1 || date.day < 1 || !(year(date.year) / date.month / date.day).ok())
    return std::nullopt;
  return date;
}

Date daysLater(const Date& date, int count) { return dateOf(daysOf(date) + days(count)); }

Date monthsLater(const Date& date, int count) {
  const auto month = year_month(year(date.year), std::chrono::month(static_cast<unsigned>(date.month))) + months(count);
  const auto last = static_cast<int>(static_cast<unsigned>((month / std::chrono::last).day()));
  return {static_cast<int>(month.year()), static_cast<int>(static_cast<unsigned>(month.month())),
          std::min(date.day, last)};
}

int daysBetween(const Date& from, const Date& to) { return static_cast<int>((daysOf(to) - daysOf(from)).count()); }
int isoWeekday(const Date& date) { return static_cast<int>(weekday(daysOf(date)).iso_encoding()); }

Instant noonOf(const Calendar& calendar, const Date& date) {
  return calendar.instant(date.year, date.month, date.day, 12);
}

WeekOfYear weekOf(const Date& date, WeekNumbering numbering, const std::string& locale) {
  const auto calendar = numbering == WeekNumbering::locale ? calendarOf(locale) : nullptr;
  if (!calendar) return weekOf(daysOf(date), 1, 4);
  UErrorCode error = U_ZERO_ERROR;
  return weekOf(daysOf(date), isoOf(calendar->getFirstDayOfWeek(error)), calendar->getMinimalDaysInFirstWeek());
}

int firstWeekday(WeekNumbering numbering, const Calendar& calendar) {
  return numbering == WeekNumbering::iso ? 1 : calendar.firstWeekday();
}

std::array<bool, 7> daysOff(const std::string& locale) {
  std::array<bool, 7> off{false, false, false, false, false, true, true};
  const auto calendar = calendarOf(locale);
  if (!calendar) return off;
  std::array<bool, 7> found{};
  for (int day = UCAL_SUNDAY; day <= UCAL_SATURDAY; ++day) {
    UErrorCode error = U_ZERO_ERROR;
    const auto type = calendar->getDayOfWeekType(static_cast<UCalendarDaysOfWeek>(day), error);
    found[static_cast<std::size_t>(isoOf(day) - 1)] =
        U_SUCCESS(error) && type != UCAL_WEEKDAY && type != UCAL_WEEKEND_CEASE;
  }
  // A week needs both, or nothing is waited for.
  const auto count = std::ranges::count(found, true);
  return count > 0 && count < 7 ? found : off;
}

MonthPage monthPage(int ofYear, int ofMonth, WeekNumbering numbering, const Calendar& calendar) {
  const Date first{ofYear, ofMonth, 1};
  const int before = (isoWeekday(first) - calendar.firstWeekday() + 7) % 7;
  MonthPage page;
  for (int i = 0; i < 42; ++i) page.days[static_cast<std::size_t>(i)] = daysLater(first, i - before);
  // A week of the standard has six days of a row that begins on a Sunday; the middle is among them.
  for (int row = 0; row < 6; ++row)
    page.weeks[static_cast<std::size_t>(row)] =
        weekOf(page.days[static_cast<std::size_t>(7 * row + 3)], numbering, calendar.locale()).week;
  return page;
}

}  // namespace ambrel
