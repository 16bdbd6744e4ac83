#pragma once
// The phases of the moon, after Jean Meeus, "Astronomical Algorithms" (2nd edition), chapters 48 and 49. Without the
// small terms of the planets, and with one figure for the earth's uneven turning: from 1980 to 2060 within three
// minutes.

#include <string_view>
#include <vector>

#include "core/base/Calendar.h"

namespace ambrel {

enum class MoonQuarter { newMoon, firstQuarter, fullMoon, lastQuarter };

struct MoonEvent {
  MoonQuarter quarter = MoonQuarter::newMoon;
  Instant at{};
  friend bool operator==(const MoonEvent&, const MoonEvent&) = default;
};

// The last one that is not after `now`, and as many as asked for after it.
MoonEvent lastMoonEvent(Instant now);
std::vector<MoonEvent> nextMoonEvents(Instant now, int count);

// The lit share of the disc, 0 to 1.
double moonIllumination(Instant now);

// "New Moon", "Waxing Crescent", "First Quarter", "Waxing Gibbous", "Full Moon" ... A quarter gives its name to the
// whole local day on which it is.
std::string_view moonName(const Calendar& calendar, Instant now);
// "New Moon", "First Quarter", "Full Moon", "Last Quarter"
std::string_view title(MoonQuarter quarter);

}  // namespace ambrel
