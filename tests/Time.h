#pragma once
// Instants of tests, by their text.

#include "core/base/Instant.h"

namespace ambrel {

// "2026-11-21T09:00:00Z"; throws when it is no instant.
inline Instant at(std::string_view text) { return parseISO8601(text).value(); }

}  // namespace ambrel
