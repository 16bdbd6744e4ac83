#include "core/base/Files.h"
#include "core/usage.h"

namespace ambrel::ClaudeLimits {
namespace {

// What Claude Code hands over is a few kilobytes.
constexpr std::uint64_t largestFile = 16 << 20;

std::optional<CodexUsage::Window> window(const LineObject& limits, std::string_view key, std::int64_t minutes) {
  const auto object = limits.object(key);
  if (!object) return std::nullopt;
  const auto percent = object->number("used_percentage");
  const auto reset = object->number("resets_at");
  if (!percent || !reset) return std::nullopt;
  return CodexUsage::Window{*percent, minutes, instantFromUnixSeconds(*reset)};
}

}  // namespace

std::optional<Limits> parse(const LineObject& object, Instant asOf) {
  const auto limits = object.object("rate_limits");
  if (!limits) return std::nullopt;
  Limits parsed{window(*limits, "five_hour", 300), window(*limits, "seven_day", 10080), asOf};
  if (!parsed.session && !parsed.week) return std::nullopt;
  return parsed;
}

std::optional<Limits> read(const std::filesystem::path& file) {
  // The date first: a file that is replaced in between is then read again on the next pass.
  const auto status = fileStatus(file);
  const auto bytes = status ? readFile(file, largestFile) : std::nullopt;
  if (!bytes) return std::nullopt;
  LineParser parser;
  const auto object = parser.parse(*bytes);
  return object ? parse(*object, status->modified) : std::nullopt;
}

}  // namespace ambrel::ClaudeLimits
