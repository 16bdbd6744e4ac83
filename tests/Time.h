#pragma once
// Instants of tests, by their text, and spans by their bare names.

#include "core/base/Instant.h"

namespace ambrel {

using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;

// "2026-11-21T09:00:00Z"; throws when it is no instant.
inline Instant at(std::string_view text) { return parseISO8601(text).value(); }

}  // namespace ambrel
