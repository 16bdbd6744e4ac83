#pragma once
// A made-up tree of Claude logs, as its tool leaves them: the same bytes for the same seed.

#include <cstdint>
#include <filesystem>

#include "core/base/Instant.h"

namespace ambrel {

struct UsageTree {
  std::uint64_t bytes = 0;
  std::uint64_t files = 0;
  std::uint64_t replies = 0;
  std::int64_t tokens = 0;
};

// Writes logs below `home` until there are at least `bytes`. A third of the lines are replies with usage; they are
// dated within the hour before `now`, and so are the files.
UsageTree writeUsageTree(const std::filesystem::path& home, std::uint64_t bytes, std::uint32_t seed, Instant now);

}  // namespace ambrel
