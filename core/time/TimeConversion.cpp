#include "core/time/TimeConversion.h"

#include <algorithm>
#include <charconv>

#include "core/base/Text.h"
#include "core/time/Weeks.h"

namespace ambrel {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::optional<ReadTime> readNumber(std::string_view text) {
  const std::string_view digits = text.starts_with('-') ? text.substr(1) : text;
  const auto whole = static_cast<std::size_t>(std::ranges::find_if_not(digits, isDigit) - digits.begin());
  if (whole == 0 || (whole < digits.size() && digits[whole] != '.')) return std::nullopt;
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  using enum UnixUnit;
  const UnixUnit unit = whole < 12 ? seconds : whole < 15 ? milliseconds : whole < 18 ? microseconds : nanoseconds;
  for (int i = 0; i < static_cast<int>(unit); ++i) value /= 1000;
  constexpr double first = -62135596800, last = 253402300799;  // the years 0001 and 9999
  if (value < first || value > last) return std::nullopt;
  return ReadTime{instantFromUnixSeconds(value), unit};
}

std::optional<ReadTime> readLocalDate(std::string_view text, const Calendar& calendar) {
  const auto date = dateOfKey(text.substr(0, std::min<std::size_t>(10, text.size())));
  if (!date) return std::nullopt;
  int time[3] = {};
  if (text.size() > 10) {
    if (text[10] != ' ' && text[10] != 'T') return std::nullopt;
    const auto pieces = split(text.substr(11), ':');
    if (pieces.size() < 2 || pieces.size() > 3) return std::nullopt;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
      const char* end = pieces[i].data() + pieces[i].size();
      if (pieces[i].empty() || pieces[i].size() > 2 || !std::ranges::all_of(pieces[i], isDigit) ||
          std::from_chars(pieces[i].data(), end, time[i]).ptr != end || time[i] > (i == 0 ? 23 : 59))
        return std::nullopt;
    }
  }
  return ReadTime{calendar.instant(date->year, date->month, date->day, time[0], time[1], time[2]), std::nullopt};
}

}  // namespace

std::optional<ReadTime> readTime(std::string_view text, const Calendar& calendar) {
  text = trimmed(text);
  if (auto number = readNumber(text)) return number;
  if (const auto instant = parseISO8601(text)) return ReadTime{*instant, std::nullopt};
  return readLocalDate(text, calendar);
}

}  // namespace ambrel
