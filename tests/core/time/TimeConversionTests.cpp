#include <gtest/gtest.h>

#include "core/time/TimeConversion.h"
#include "tests/Time.h"

namespace ambrel {
namespace {

TEST(TimeConversion, TakesNumbersOfEveryUnitAndDatesOfEveryForm) {
  const Calendar berlin("Europe/Berlin", "de_DE");
  using enum UnixUnit;
  const std::tuple<const char*, const char*, std::optional<UnixUnit>> read[] = {
      {"0", "1970-01-01T00:00:00Z", seconds},
      {" 1795354233 ", "2026-11-22T13:30:33Z", seconds},
      {"-1", "1969-12-31T23:59:59Z", seconds},
      {"1795354233.25", "2026-11-22T13:30:33.25Z", seconds},
      {"1795354233250", "2026-11-22T13:30:33.25Z", milliseconds},
      {"1795354233250001", "2026-11-22T13:30:33.250001Z", microseconds},
      {"1795354233250000000", "2026-11-22T13:30:33.25Z", nanoseconds},
      {"2026-11-22T14:30:33+01:00", "2026-11-22T13:30:33Z", {}},
      {"2026-11-22 14:30:33", "2026-11-22T13:30:33Z", {}},
      {"2026-07-01T14:30", "2026-07-01T12:30:00Z", {}},
      {"2026-11-22", "2026-11-21T23:00:00Z", {}},
  };
  for (const auto& [text, instant, unit] : read)
    EXPECT_EQ(readTime(text, berlin), (ReadTime{at(instant), unit})) << text;
  for (const char* text : {"", "-", "1.2.3", "12x", "1e9", "nan", "99999999999999999999999", "2026-13-01",
                           "2026-11-22 25:00", "2026-11-22 1", "2026-11-22 14:30:", "2026-11-2214:30", "now"})
    EXPECT_FALSE(readTime(text, berlin)) << text;
}

}  // namespace
}  // namespace ambrel
