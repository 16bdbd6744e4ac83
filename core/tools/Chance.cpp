// Identifiers and passwords.

#include <algorithm>
#include <array>
#include <stdexcept>
#include <sys/random.h>

#include "core/base/Text.h"
#include "core/base/UUID.h"
#include "core/tools/Tools.h"

namespace ambrel {

void fillRandomly(std::span<std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t got = getrandom(bytes.data(), bytes.size(), 0);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) throw std::runtime_error("cannot read random bytes");
    bytes = bytes.subspan(static_cast<std::size_t>(got));
  }
}

namespace tools {
namespace {

// Below `count`, each number as likely as the others.
std::size_t drawn(const ToolSource& source, std::size_t count) {
  const std::size_t fair = 256 - 256 % count;
  for (;;) {
    std::uint8_t byte = 0;
    source.random({&byte, 1});
    if (byte < fair) return byte % count;
  }
}

constexpr std::string_view lower = "abcdefghijklmnopqrstuvwxyz", upper = "ABCDEFGHIJKLMNOPQRSTUVWXYZ",
                           numerals = "0123456789", signs = "!#$%&*+-./:;=?@^_~";

// Drawn as a whole again until every class has come up: to put one in by force would make others less likely.
std::string ofClasses(const ToolCall& call, std::span<const std::string_view> classes) {
  std::string all;
  for (const auto one : classes) all += one;
  const auto length = std::max(static_cast<std::size_t>(std::max(1, call.source.passwordLength)), classes.size());
  for (;;) {
    std::string text;
    while (text.size() < length) text += all[drawn(call.source, all.size())];
    if (std::ranges::all_of(classes, [&](auto one) { return text.find_first_of(one) != std::string::npos; }))
      return text;
  }
}

// Syllables in groups of three: "kodavu-mirezo-tapiku". About half as hard to guess as letters of the same number.
std::string speakable(const ToolCall& call) {
  constexpr std::string_view consonants = "bdfghjklmnprstvz", vowels = "aeiou";
  const auto length = static_cast<std::size_t>(std::max(1, call.source.passwordLength));
  std::string text;
  while (text.size() < length) {
    const std::size_t place = text.size() % 7;
    if (place == 6 && text.size() + 1 < length)
      text += '-';
    else if (place % 2 == 0)
      text += consonants[drawn(call.source, consonants.size())];
    else
      text += vowels[drawn(call.source, vowels.size())];
  }
  return text;
}

}  // namespace

ToolOutcome uuid(const ToolCall& call) {
  UUID id;
  call.source.random(id.bytes);
  int version = 4;
  if (call.choice == "v7") {
    version = 7;
    const auto milliseconds = static_cast<std::uint64_t>(
        std::chrono::floor<std::chrono::milliseconds>(call.source.now).time_since_epoch().count());
    for (int i = 0; i < 6; ++i)
      id.bytes[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(milliseconds >> (40 - 8 * i));
  }
  id.bytes[6] = static_cast<std::uint8_t>((id.bytes[6] & 0x0F) | version << 4);
  id.bytes[8] = static_cast<std::uint8_t>((id.bytes[8] & 0x3F) | 0x80);
  return {asciiLower(id.text()), {}};
}

ToolOutcome password(const ToolCall& call) {
  constexpr std::array all{lower, upper, numerals, signs};
  if (call.choice == "words") return {speakable(call), {}};
  if (call.choice == "digits") return {ofClasses(call, std::span(all).subspan(2, 1)), {}};
  return {ofClasses(call, std::span(all).first(call.choice == "letters" ? 3 : 4)), {}};
}

ToolGlance uuidGlance(const ToolCall& call, const ToolOutcome& outcome) {
  return {outcome.output.substr(0, 8), call.choice == "v7" ? "Version 7" : "Version 4", {}};
}

ToolGlance passwordGlance(const ToolCall& call, const ToolOutcome& outcome) {
  return {"••••••", counted(call, static_cast<std::int64_t>(outcome.output.size()), "character", "characters"), {}};
}

}  // namespace tools
}  // namespace ambrel
