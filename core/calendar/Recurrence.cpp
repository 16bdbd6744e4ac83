#include "core/calendar/Recurrence.h"

#include <algorithm>
#include <ranges>

namespace ambrel {
namespace {

using namespace std::chrono;
using Frequency = Recurrence::Frequency;

constexpr std::size_t mostTimes = 4000;  // of one rule in one window

bool has(const std::vector<int>& list, int value) { return std::ranges::find(list, value) != list.end(); }
// `value` from 1 to `count`, or its number from the end.
bool has(const std::vector<int>& list, int value, int count) {
  return has(list, value) || has(list, value - count - 1);
}

int isoWeekday(local_days day) { return static_cast<int>(weekday(day).iso_encoding()); }
local_days weekOf(local_days day, int weekStart) { return day - days((isoWeekday(day) - weekStart + 7) % 7); }
local_days newYear(year y) { return local_days(y / January / 1); }
// The first day of week 1: the first week with four days of the year.
local_days firstWeek(year y, int weekStart) { return weekOf(newYear(y) + days(3), weekStart); }

template <typename T>
T flooredDiv(T a, T b) {
  return a / b - (a % b < 0 ? 1 : 0);
}

// A rule with what its start fills in.
class Expansion {
 public:
  Expansion(const Recurrence& rule, WallTime start)
      : rule_(rule), start_(start), startDay_(floor<days>(start)), startDate_(startDay_) {
    const hh_mm_ss time(start - startDay_);
    const auto fill = [](std::vector<int>& list, long value) {
      if (list.empty()) list.push_back(static_cast<int>(value));
    };
    if (rule.frequency > Frequency::hourly) fill(rule_.hours, time.hours().count());
    if (rule.frequency > Frequency::minutely) fill(rule_.minutes, time.minutes().count());
    fill(rule_.seconds, time.seconds().count());
    const int day = static_cast<int>(static_cast<unsigned>(startDate_.day()));
    const bool hasDay = !rule.days.empty() || !rule.monthDays.empty() || !rule.yearDays.empty();
    if (hasDay) return;
    if (!rule.weeks.empty() || rule.frequency == Frequency::weekly) {
      rule_.days.push_back({isoWeekday(startDay_), 0});
    } else if (rule.frequency == Frequency::monthly) {
      rule_.monthDays.push_back(day);
    } else if (rule.frequency == Frequency::yearly) {
      fill(rule_.months, static_cast<unsigned>(startDate_.month()));
      rule_.monthDays.push_back(day);
    }
  }

  std::vector<WallTime> run(WallTime from, WallTime to, RecurrenceBudget& budget) {
    if (rule_.until) to = std::min(to, *rule_.until);
    int left = rule_.count.value_or(0);
    std::vector<WallTime> found, times;
    const std::int64_t step = std::max(1, rule_.interval);
    std::int64_t index =
        rule_.count || from <= start_ ? 0 : std::max<std::int64_t>(0, flooredDiv(units(from), step)) * step;
    for (;; index += step) {
      const auto first = begin(index);
      if (first > to) return found;
      times.clear();
      collect(index, times, budget);
      if (budget.steps < 0) return found;
      for (const WallTime time : chosen(times)) {
        if (time < start_) continue;
        if (time > to) return found;
        if (time >= from) found.push_back(time);
        if ((rule_.count && --left <= 0) || found.size() >= mostTimes) return found;
      }
    }
  }

 private:
  static constexpr std::int64_t daySeconds = 86400;

  std::int64_t unitSeconds() const { return rule_.frequency == Frequency::minutely ? 60 : 3600; }
  bool isBelowDay() const { return rule_.frequency < Frequency::daily; }

  // Whole units of the frequency from the start's to that of `time`.
  std::int64_t units(WallTime time) const {
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const auto months = [](year_month_day of) {
      return static_cast<int>(of.year()) * 12L + static_cast<unsigned>(of.month());
    };
    switch (rule_.frequency) {
      case Frequency::minutely:
      case Frequency::hourly:
        return flooredDiv<std::int64_t>((time - firstUnit()).count(), unitSeconds());
      case Frequency::daily:
        return (day - startDay_).count();
      case Frequency::weekly:
        return flooredDiv<std::int64_t>((day - weekOf(startDay_, rule_.weekStart)).count(), 7);
      case Frequency::monthly:
        return months(date) - months(startDate_);
      case Frequency::yearly:
        return static_cast<int>(date.year()) - static_cast<int>(startDate_.year());
    }
    return 0;
  }

  WallTime firstUnit() const {
    return WallTime(
        seconds(flooredDiv<std::int64_t>(start_.time_since_epoch().count(), unitSeconds()) * unitSeconds()));
  }
  year_month monthAt(std::int64_t index) const {
    return year_month(startDate_.year(), startDate_.month()) + months(index);
  }
  // The first moment of the unit with that index; far beyond any window where dates end.
  WallTime begin(std::int64_t index) const {
    constexpr std::int64_t mostUnits = 20'000'000'000;
    constexpr int lastYear = 9999;
    const WallTime never = WallTime::max();
    if (index > mostUnits) return never;
    switch (rule_.frequency) {
      case Frequency::minutely:
      case Frequency::hourly:
        return firstUnit() + seconds(index * unitSeconds());
      case Frequency::daily:
        return WallTime(startDay_) + seconds(index * daySeconds);
      case Frequency::weekly:
        return WallTime(weekOf(startDay_, rule_.weekStart)) + seconds(index * 7 * daySeconds);
      case Frequency::monthly:
        return index > lastYear * 12 || static_cast<int>(monthAt(index).year()) > lastYear
                   ? never
                   : local_days(monthAt(index) / 1);
      case Frequency::yearly:
        return index + static_cast<int>(startDate_.year()) > lastYear ? never
                                                                      : newYear(startDate_.year() + years(index));
    }
    return never;
  }

  void collect(std::int64_t index, std::vector<WallTime>& times, RecurrenceBudget& budget) {
    const WallTime first = begin(index);
    const auto day = floor<days>(first);
    --budget.steps;
    if (isBelowDay()) {
      const hh_mm_ss time(first - day);
      const int hour = static_cast<int>(time.hours().count()), minute = static_cast<int>(time.minutes().count());
      if (!rule_.hours.empty() && !has(rule_.hours, hour)) return;
      if (rule_.frequency == Frequency::minutely && !rule_.minutes.empty() && !has(rule_.minutes, minute)) return;
      if (!matches(day)) return;
      for (const int m : rule_.frequency == Frequency::minutely ? std::vector{minute} : rule_.minutes)
        for (const int s : rule_.seconds) times.push_back(day + hours(hour) + minutes(m) + seconds(s));
      return;
    }
    local_days end = day + days(1);
    if (rule_.frequency == Frequency::weekly) end = day + days(7);
    if (rule_.frequency == Frequency::monthly) end = local_days((monthAt(index) + months(1)) / 1);
    if (rule_.frequency == Frequency::yearly) end = newYear(startDate_.year() + years(index + 1));
    for (local_days at = day; at < end;) {
      --budget.steps;
      // Most rules of a year name its months.
      if (const local_days next = nextMonth(at, end); next != at) {
        at = next;
        continue;
      }
      if (matches(at)) add(at, times);
      at += days(1);
    }
  }

  // The day itself, or the first of the next month where the rule passes its month over.
  local_days nextMonth(local_days day, local_days end) const {
    if (rule_.months.empty()) return day;
    const year_month_day date(day);
    if (has(rule_.months, static_cast<int>(static_cast<unsigned>(date.month())))) return day;
    return std::min(end, local_days((year_month(date.year(), date.month()) + months(1)) / 1));
  }

  void add(local_days day, std::vector<WallTime>& times) const {
    for (const int h : rule_.hours)
      for (const int m : rule_.minutes)
        for (const int s : rule_.seconds) times.push_back(day + hours(h) + minutes(m) + seconds(s));
  }

  bool matches(local_days day) const {
    const year_month_day date(day);
    const int monthDay = static_cast<int>(static_cast<unsigned>(date.day()));
    if (!rule_.months.empty() && !has(rule_.months, static_cast<int>(static_cast<unsigned>(date.month()))))
      return false;
    const auto monthLength = [&] {
      return static_cast<int>(static_cast<unsigned>(year_month_day_last(date.year() / date.month() / last).day()));
    };
    if (!rule_.monthDays.empty() && !has(rule_.monthDays, monthDay, monthLength())) return false;
    const int yearDay = static_cast<int>((day - newYear(date.year())).count()) + 1;
    const auto yearLength = [&] { return date.year().is_leap() ? 366 : 365; };
    if (!rule_.yearDays.empty() && !has(rule_.yearDays, yearDay, yearLength())) return false;
    if (!rule_.weeks.empty() && !isInWeeks(day, date.year())) return false;
    if (rule_.days.empty()) return true;
    const bool isOfYear = rule_.frequency == Frequency::yearly && rule_.months.empty();
    const bool countsDays = rule_.frequency >= Frequency::monthly && rule_.weeks.empty();
    return std::ranges::any_of(rule_.days, [&](const Recurrence::Day& wanted) {
      if (wanted.weekday != isoWeekday(day)) return false;
      if (wanted.nth == 0 || !countsDays) return true;
      const int at = isOfYear ? yearDay : monthDay, count = isOfYear ? yearLength() : monthLength();
      return wanted.nth > 0 ? (at - 1) / 7 + 1 == wanted.nth : (count - at) / 7 + 1 == -wanted.nth;
    });
  }

  bool isInWeeks(local_days day, year y) const {
    // The first days of a year may be in the last week of the one before, its last ones in the first of the next.
    if (day < firstWeek(y, rule_.weekStart))
      --y;
    else if (day >= firstWeek(y + years(1), rule_.weekStart))
      ++y;
    const local_days first = firstWeek(y, rule_.weekStart);
    const int weeks = static_cast<int>((firstWeek(y + years(1), rule_.weekStart) - first).count()) / 7;
    return has(rule_.weeks, static_cast<int>((day - first).count()) / 7 + 1, weeks);
  }

  std::vector<WallTime> chosen(const std::vector<WallTime>& times) const {
    if (rule_.positions.empty()) return times;
    std::vector<WallTime> chosen;
    const int count = static_cast<int>(times.size());
    for (int i = 0; i < count; ++i)
      if (has(rule_.positions, i + 1, count)) chosen.push_back(times[static_cast<std::size_t>(i)]);
    return chosen;
  }

  Recurrence rule_;
  WallTime start_;
  local_days startDay_;
  year_month_day startDate_;
};

}  // namespace

std::vector<WallTime> recurrences(const Recurrence& rule, WallTime start, WallTime from, WallTime to,
                                  RecurrenceBudget& budget) {
  return Expansion(rule, start).run(from, to, budget);
}

}  // namespace ambrel
