#pragma once
// Identifiers of slots, profiles and clips: RFC 4122 version 4, written in capitals.

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ambrel {

struct UUID {
  std::array<std::uint8_t, 16> bytes{};

  // From the kernel's random source.
  static UUID random();
  // 8-4-4-4-12 hexadecimal digits in either case.
  static std::optional<UUID> parse(std::string_view text);
  std::string text() const;

  friend auto operator<=>(const UUID&, const UUID&) = default;
};

}  // namespace ambrel
