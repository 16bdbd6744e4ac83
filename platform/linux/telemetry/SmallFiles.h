#pragma once
// Files of /proc and /sys: short, without a size of their own, and gone at any time.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

// A file of /proc, read until its end; absent when it cannot be read.
std::optional<std::string> readText(const std::filesystem::path& path);
// A file of /sys, which comes whole at the first read; absent when it cannot be read (a sensor that is asleep).
std::optional<std::string> readAttribute(const std::filesystem::path& path);
// The same without white space at both ends; "" when it cannot be read.
std::string readWord(const std::filesystem::path& path);
std::optional<long long> readNumber(const std::filesystem::path& path);
bool isThere(const std::filesystem::path& path);
// The names in a folder that begin so, sorted; links count.
std::vector<std::string> namesIn(const std::filesystem::path& folder, std::string_view prefix = {});

// The time since boot, sleep included; rates are computed with it.
std::uint64_t bootNanoseconds();

}  // namespace ambrel
