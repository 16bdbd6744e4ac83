#include "core/base/LocalText.h"

#include <cmath>
#include <iterator>
#include <unicode/dtptngen.h>
#include <unicode/measunit.h>
#include <unicode/numberformatter.h>
#include <unicode/reldatefmt.h>

#include "core/base/CalendarImpl.h"

namespace ambrel {
namespace {

std::string utf8(const icu::UnicodeString& text) {
  std::string out;
  text.toUTF8String(out);
  return out;
}

double icuTime(Instant instant) { return unixSeconds(instant) * 1000.0; }

struct Age {
  double count;
  URelativeDateTimeUnit relative;
  icu::MeasureUnit measure;
};

Age ageIn(double seconds) {
  if (seconds < 60) return {std::floor(seconds), UDAT_REL_UNIT_SECOND, icu::MeasureUnit::getSecond()};
  if (seconds < 3600) return {std::floor(seconds / 60), UDAT_REL_UNIT_MINUTE, icu::MeasureUnit::getMinute()};
  if (seconds < 86400) return {std::floor(seconds / 3600), UDAT_REL_UNIT_HOUR, icu::MeasureUnit::getHour()};
  return {std::floor(seconds / 86400), UDAT_REL_UNIT_DAY, icu::MeasureUnit::getDay()};
}

// What `write` makes of the locale's words for ages; empty when it has none.
template <typename Write>
std::string inWords(const Calendar& calendar, Write write) {
  const Calendar::Impl& impl = calendar.impl();
  const std::scoped_lock lock(impl.mutex);
  UErrorCode error = U_ZERO_ERROR;
  if (!impl.ages)
    impl.ages = std::make_unique<icu::RelativeDateTimeFormatter>(impl.locale, nullptr, UDAT_STYLE_NARROW,
                                                                 UDISPCTX_CAPITALIZATION_NONE, error);
  icu::UnicodeString out;
  write(*impl.ages, out, error);
  return U_SUCCESS(error) ? utf8(out) : std::string();
}

std::string nowWord(const Calendar& calendar) {
  const std::string word = inWords(calendar, [](const auto& format, icu::UnicodeString& out, UErrorCode& error) {
    format.format(UDAT_DIRECTION_PLAIN, UDAT_ABSOLUTE_NOW, out, error);
  });
  return word.empty() ? "now" : word;
}

}  // namespace

std::string formattedDate(const Calendar& calendar, Instant instant, const std::string& skeleton) {
  const Calendar::Impl& impl = calendar.impl();
  const std::scoped_lock lock(impl.mutex);
  auto& format = impl.formats[skeleton];
  if (!format) {
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(impl.locale, error));
    if (U_FAILURE(error)) return {};
    auto made = std::make_unique<icu::SimpleDateFormat>(
        generator->getBestPattern(icu::UnicodeString::fromUTF8(skeleton), error), impl.locale, error);
    if (U_FAILURE(error)) return {};
    made->setTimeZone(*impl.zone);
    format = std::move(made);
  }
  icu::UnicodeString out;
  return utf8(format->format(icuTime(instant), out));
}

std::string shortTime(const Calendar& calendar, Instant instant) { return formattedDate(calendar, instant, "jmm"); }

std::string weekdayTime(const Calendar& calendar, Instant instant) {
  return formattedDate(calendar, instant, "EEEEjmm");
}

Instant relativeAgeChange(Instant instant, Instant now) {
  const double seconds = secondsBetween(instant, now).count();
  if (seconds < 1) return advanced(instant, Seconds(1));
  const double unit = seconds < 60 ? 1 : seconds < 3600 ? 60 : seconds < 86400 ? 3600 : 86400;
  return advanced(instant, Seconds((std::floor(seconds / unit) + 1) * unit));
}

std::string relativeAge(const Calendar& calendar, Instant instant, Instant now) {
  const double seconds = secondsBetween(instant, now).count();
  if (seconds < 1) return nowWord(calendar);
  const Age age = ageIn(seconds);
  return inWords(calendar, [&](const auto& format, icu::UnicodeString& out, UErrorCode& error) {
    format.formatNumeric(-age.count, age.relative, out, error);
  });
}

namespace {

// `shape` completes the format the first time. A format may be used by several threads once it is made.
template <typename Shape>
const icu::number::LocalizedNumberFormatter& numberFormat(const Calendar& calendar, Calendar::Impl::NumberKind kind,
                                                          int variant, Shape shape) {
  const Calendar::Impl& impl = calendar.impl();
  const std::scoped_lock lock(impl.mutex);
  const auto key = std::pair(kind, variant);
  const auto found = impl.numbers.find(key);
  if (found != impl.numbers.end()) return found->second;
  return impl.numbers.emplace(key, shape(icu::number::NumberFormatter::withLocale(impl.locale))).first->second;
}

using NumberKind = Calendar::Impl::NumberKind;
constexpr int anyFraction = -1;

std::string compact(const Calendar& calendar, std::int64_t count, int fraction) {
  UErrorCode error = U_ZERO_ERROR;
  return utf8(numberFormat(calendar, NumberKind::compact, fraction,
                           [&](const auto& format) {
                             const auto brief = format.notation(icu::number::Notation::compactShort());
                             return fraction == anyFraction
                                        ? brief
                                        : brief.precision(icu::number::Precision::maxFraction(fraction));
                           })
                  .formatInt(count, error)
                  .toString(error));
}

}  // namespace

std::string shortAge(const Calendar& calendar, Instant instant, Instant now) {
  const double seconds = secondsBetween(instant, now).count();
  if (seconds < 60) return nowWord(calendar);
  const Age age = ageIn(seconds);
  UErrorCode error = U_ZERO_ERROR;
  const auto text = numberFormat(calendar, NumberKind::age, age.relative,
                                 [&](const auto& format) {
                                   return format.unit(age.measure)
                                       .unitWidth(UNUM_UNIT_WIDTH_SHORT)
                                       .precision(icu::number::Precision::integer());
                                 })
                        .formatDouble(age.count, error)
                        .toString(error);
  return U_SUCCESS(error) ? utf8(text) : std::string{};
}

std::string compactCount(const Calendar& calendar, std::int64_t count) { return compact(calendar, count, anyFraction); }

std::string compactCount(const Calendar& calendar, std::int64_t count, int fraction) {
  return compact(calendar, count, fraction);
}

namespace {

std::string sizeText(const Calendar& calendar, std::int64_t bytes, NumberKind kind) {
  UErrorCode error = U_ZERO_ERROR;
  constexpr int largest = 4;
  auto value = static_cast<double>(bytes);
  int unit = 0;
  while (std::abs(value) >= 999.5 && unit < largest) {
    value /= 1000;
    ++unit;
  }
  return utf8(numberFormat(calendar, kind, unit,
                           [&](const auto& format) {
                             const icu::MeasureUnit units[] = {
                                 icu::MeasureUnit::getByte(), icu::MeasureUnit::getKilobyte(),
                                 icu::MeasureUnit::getMegabyte(), icu::MeasureUnit::getGigabyte(),
                                 icu::MeasureUnit::getTerabyte()};
                             return format.unit(units[unit])
                                 .unitWidth(unit == 0 ? UNUM_UNIT_WIDTH_FULL_NAME : UNUM_UNIT_WIDTH_SHORT)
                                 .precision(kind == NumberKind::briefSize
                                                ? icu::number::Precision::maxSignificantDigits(3)
                                                : icu::number::Precision::maxFraction(unit < 2    ? 0
                                                                                      : unit == 2 ? 1
                                                                                                  : 2));
                           })
                  .formatDouble(value, error)
                  .toString(error));
}

}  // namespace

std::string fileSize(const Calendar& calendar, std::int64_t bytes) {
  return sizeText(calendar, bytes, NumberKind::size);
}

std::string briefFileSize(const Calendar& calendar, std::int64_t bytes) {
  return sizeText(calendar, bytes, NumberKind::briefSize);
}

std::string decimal(const Calendar& calendar, double value, int fraction) {
  UErrorCode error = U_ZERO_ERROR;
  return utf8(
      numberFormat(calendar, NumberKind::decimal, fraction,
                   [&](const auto& format) { return format.precision(icu::number::Precision::maxFraction(fraction)); })
          .formatDouble(value, error)
          .toString(error));
}

}  // namespace ambrel
