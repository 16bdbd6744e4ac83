#include "core/base/Calendar.h"

#include <fmt/format.h>
#include <unicode/calendar.h>
#include <unicode/timezone.h>

#include "core/base/CalendarImpl.h"
#include "core/base/ZoneFile.h"

namespace ambrel {
namespace {

using namespace std::chrono;
using LocalTime = std::chrono::local_time<microseconds>;

double milliseconds_(microseconds span) { return std::floor(static_cast<double>(span.count()) / 1000.0); }

std::unique_ptr<icu::BasicTimeZone> asBasic(icu::TimeZone* zone) {
  std::unique_ptr<icu::TimeZone> owner(zone);
  if (auto* basic = dynamic_cast<icu::BasicTimeZone*>(owner.get())) {
    owner.release();
    return std::unique_ptr<icu::BasicTimeZone>(basic);
  }
  return nullptr;
}

std::unique_ptr<icu::BasicTimeZone> makeZone(const std::string& name) {
  auto zone = name.empty() ? asBasic(icu::TimeZone::detectHostTimeZone())
                           : asBasic(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(name)));
  if (zone) {
    icu::UnicodeString id;
    zone->getID(id);
    if (id != UNICODE_STRING_SIMPLE("Etc/Unknown")) return zone;
  }
  return asBasic(icu::TimeZone::createTimeZone(UNICODE_STRING_SIMPLE("UTC")));
}

// "de_DE.UTF-8@euro" -> "de_DE"
std::string localeId(std::string name) {
  name.erase(std::min(name.find('.'), name.find('@')) == std::string::npos ? name.size()
                                                                           : std::min(name.find('.'), name.find('@')));
  return name.empty() || name == "C" || name == "POSIX" ? "en_US" : name;
}

LocalTime localTime(const Calendar& calendar, Instant instant) {
  return LocalTime(instant.time_since_epoch() + calendar.offset(instant));
}

}  // namespace

Calendar::Calendar(const std::string& zone, const std::string& locale) {
  auto impl = std::make_shared<Impl>();
  impl->zone = makeZone(zone);
  icu::UnicodeString id;
  impl->zone->getID(id).toUTF8String(impl->zoneName);
  impl->localeName = localeId(locale);
  impl->locale = icu::Locale::createCanonical(impl->localeName.c_str());
  impl_ = std::move(impl);
}

Calendar Calendar::fromVariables(const std::string& tz, const std::string& lcAll, const std::string& lcTime,
                                 const std::string& lang) {
  const std::string& locale = !lcAll.empty() ? lcAll : !lcTime.empty() ? lcTime : lang;
  // POSIX allows a leading colon before a zone's file name.
  std::string zone = tz.starts_with(':') ? tz.substr(1) : tz;
  if (zone.empty() || zone.starts_with('/')) zone = zoneOfFile(zone.empty() ? "/etc/localtime" : zone);
  return Calendar(zone, locale);
}

std::string zoneOfFile(const std::filesystem::path& file) {
  constexpr std::string_view database = "/zoneinfo/";
  constexpr int mostLinks = 16;
  std::filesystem::path path = file.lexically_normal();
  for (int i = 0; i < mostLinks; ++i) {
    const std::string text = path.string();
    if (const auto at = text.find(database); at != text.npos) {
      const std::string name = text.substr(at + database.size());
      for (const std::string_view variant : {"posix/", "right/"})
        if (name.starts_with(variant)) return name.substr(variant.size());
      return name;
    }
    std::error_code error;
    const auto target = std::filesystem::read_symlink(path, error);
    if (error) return {};
    path = (path.parent_path() / target).lexically_normal();
  }
  return {};
}

seconds Calendar::offset(Instant instant) const {
  int32_t raw = 0, daylight = 0;
  UErrorCode error = U_ZERO_ERROR;
  impl_->zone->getOffset(milliseconds_(instant.time_since_epoch()), false, raw, daylight, error);
  return duration_cast<seconds>(milliseconds(U_SUCCESS(error) ? raw + daylight : 0));
}

Calendar::Fields Calendar::fields(Instant instant) const {
  const LocalTime local = localTime(*this, instant);
  const auto day = floor<days>(local);
  const year_month_day date(day);
  const hh_mm_ss time(floor<seconds>(local - day));
  const auto newYear = local_days(date.year() / January / 1);
  return {.year = static_cast<int>(date.year()),
          .month = static_cast<int>(static_cast<unsigned>(date.month())),
          .day = static_cast<int>(static_cast<unsigned>(date.day())),
          .hour = static_cast<int>(time.hours().count()),
          .minute = static_cast<int>(time.minutes().count()),
          .second = static_cast<int>(time.seconds().count()),
          .weekday = static_cast<int>(weekday(day).iso_encoding()),
          .dayOfYear = static_cast<int>((day - newYear).count()) + 1};
}

Instant Calendar::instant(int y, int m, int d, int hour, int minute, int second) const {
  const auto monthDate = year_month(year(y), January) + months(m - 1);
  const LocalTime local = local_days(monthDate / 1) + days(d - 1) + hours(hour) + minutes(minute) + seconds(second);
  int32_t raw = 0, daylight = 0;
  UErrorCode error = U_ZERO_ERROR;
  impl_->zone->getOffsetFromLocal(milliseconds_(local.time_since_epoch()), UCAL_TZ_LOCAL_FORMER, UCAL_TZ_LOCAL_FORMER,
                                  raw, daylight, error);
  return Instant(local.time_since_epoch() - milliseconds(raw + daylight));
}

Instant Calendar::startOfDay(Instant value) const { return startOfDay(value, 0); }

Instant Calendar::startOfDay(Instant value, int days) const {
  const Fields f = fields(value);
  return instant(f.year, f.month, f.day + days);
}

Instant Calendar::startOfHour(Instant value) const {
  const LocalTime local = localTime(*this, value);
  const Instant start = value - (local - floor<hours>(local));
  if (offset(start) == offset(value)) return start;
  // A change of clocks by less than an hour is inside this one.
  const Fields f = fields(value);
  return instant(f.year, f.month, f.day, f.hour);
}

int Calendar::firstWeekday() const {
  UErrorCode error = U_ZERO_ERROR;
  const std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(impl_->locale, error));
  if (U_FAILURE(error)) return 1;
  const int day = calendar->getFirstDayOfWeek(error);  // 1 is Sunday
  return day == UCAL_SUNDAY ? 7 : day - 1;
}

std::string Calendar::dayKey(Instant value) const {
  const Fields f = fields(value);
  return fmt::format("{:04}-{:02}-{:02}", f.year, f.month, f.day);
}

const std::string& Calendar::zone() const { return impl_->zoneName; }
const std::string& Calendar::locale() const { return impl_->localeName; }

}  // namespace ambrel
