#pragma once
#include <gtest/gtest.h>
#include <stdexcept>

#include "core/base/Instant.h"

namespace ambrel {

inline Instant at(const char* text) {
  const auto instant = parseISO8601(text);
  if (!instant) throw std::invalid_argument(text);
  return *instant;
}

}  // namespace ambrel
