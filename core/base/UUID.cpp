#include "core/base/UUID.h"

#include <charconv>
#include <stdexcept>
#include <sys/random.h>

namespace ambrel {
namespace {

constexpr std::array<std::size_t, 4> dashes{8, 13, 18, 23};

bool isDash(std::size_t position) {
  for (const std::size_t dash : dashes)
    if (dash == position) return true;
  return false;
}

}  // namespace

UUID UUID::random() {
  UUID id;
  if (getrandom(id.bytes.data(), id.bytes.size(), 0) != static_cast<ssize_t>(id.bytes.size()))
    throw std::runtime_error("cannot read random bytes for an identifier");
  id.bytes[6] = static_cast<std::uint8_t>((id.bytes[6] & 0x0F) | 0x40);
  id.bytes[8] = static_cast<std::uint8_t>((id.bytes[8] & 0x3F) | 0x80);
  return id;
}

std::optional<UUID> UUID::parse(std::string_view text) {
  if (text.size() != 36) return std::nullopt;
  UUID id;
  std::size_t index = 0;
  for (std::size_t i = 0; i < text.size();) {
    if (isDash(i)) {
      if (text[i] != '-') return std::nullopt;
      ++i;
      continue;
    }
    const char* begin = text.data() + i;
    std::uint8_t value = 0;
    const auto [end, error] = std::from_chars(begin, begin + 2, value, 16);
    if (error != std::errc() || end != begin + 2) return std::nullopt;
    id.bytes[index++] = value;
    i += 2;
  }
  return id;
}

std::string UUID::text() const {
  constexpr std::string_view hex = "0123456789ABCDEF";
  std::string out;
  for (const std::uint8_t byte : bytes) {
    if (isDash(out.size())) out += '-';
    out += hex[byte >> 4];
    out += hex[byte & 15];
  }
  return out;
}

}  // namespace ambrel
