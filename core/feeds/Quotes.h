#pragma once
// A quote for each day, from a list of our own writing.

#include <span>
#include <string_view>

#include "core/base/Calendar.h"

namespace ambrel {

std::span<const std::string_view> quotes();
// Of the local day. All have their turn before the first comes again.
std::string_view quoteOf(const Calendar& calendar, Instant now);

}  // namespace ambrel
