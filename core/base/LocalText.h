#pragma once
// Texts in the user's own forms: times, dates, ages, counts and sizes.
// Between a time and "PM" ICU writes U+202F (NARROW NO-BREAK SPACE).

#include <cstdint>
#include <string>

#include "core/base/Calendar.h"

namespace ambrel {

// "14:30", "2:30 PM"
std::string shortTime(const Calendar& calendar, Instant instant);
// By an ICU skeleton, whose fields come in the locale's own order: "EEEdMMM" gives "Sat, Nov 21" or "Sa., 21. Nov.".
// 'j' is the hour in the locale's 12- or 24-hour habit.
std::string formattedDate(const Calendar& calendar, Instant instant, const std::string& skeleton);
// "Saturday 2:30 PM", "Samstag, 14:30"
std::string weekdayTime(const Calendar& calendar, Instant instant);
// An age in narrow units with a number: "2 min. ago", "vor 2 m"; below a second, or in the future, "now".
std::string relativeAge(const Calendar& calendar, Instant instant, Instant now);
// The same without the word for the past: "2 min", "3 hr", "1 day"; "now" under a minute.
std::string shortAge(const Calendar& calendar, Instant instant, Instant now);
// When the text of `relativeAge` changes next.
Instant relativeAgeChange(Instant instant, Instant now);
// 999 "999", 1234 "1.2K", 1234567 "1.2M"
std::string compactCount(const Calendar& calendar, std::int64_t count);
// With at most `fraction` digits behind the locale's mark, however many are before it: with one, 12345 is "12.3K".
std::string compactCount(const Calendar& calendar, std::int64_t count, int fraction);
// Decimal units: "999 bytes", "1.2 MB", "5.6 GB"
std::string fileSize(const Calendar& calendar, std::int64_t bytes);
// The same for narrow places, in three digits: "889 GB", "5.64 GB"
std::string briefFileSize(const Calendar& calendar, std::int64_t bytes);
// A decimal number with at most `fraction` digits behind the locale's mark.
std::string decimal(const Calendar& calendar, double value, int fraction);

}  // namespace ambrel
