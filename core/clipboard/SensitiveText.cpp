#include <array>
#include <cmath>
#include <memory>
#include <unicode/uchar.h>
#include <unicode/utf8.h>
#include <vector>

#include "core/base/Whitespace.h"
#include "core/clipboard.h"
#include "core/clipboard/Expressions.h"

namespace ambrel {
namespace {

// A text without the literal cannot match: looking for it first passes over ordinary text at the speed of memory.
struct SecretPattern {
  std::string_view literal;
  const char* expression;
};

constexpr std::array<SecretPattern, 9> secretPatterns{{
    {"", R"(^\d{6,8}$)"},
    {"sk-", R"(\bsk-[A-Za-z0-9_\-]{20,})"},
    {"gh", R"(\b(ghp|gho|ghu|ghs|ghr)_[A-Za-z0-9]{30,})"},
    {"github_pat_", R"(\bgithub_pat_[A-Za-z0-9_]{30,})"},
    {"xox", R"(\bxox[abprs]-[A-Za-z0-9\-]{10,})"},
    {"AKIA", R"(\bAKIA[0-9A-Z]{16}\b)"},
    {"AIza", R"(\bAIza[0-9A-Za-z_\-]{35}\b)"},
    {"eyJ", R"(\beyJ[A-Za-z0-9_\-]{10,}\.[A-Za-z0-9_\-]{10,}\.[A-Za-z0-9_\-]{10,})"},
    {"-----BEGIN ", R"(-----BEGIN [A-Z ]*PRIVATE KEY-----)"},
}};

struct CompiledPattern {
  std::string_view literal;
  std::unique_ptr<RE2> expression;
};

std::vector<CompiledPattern> compiled() {
  std::vector<CompiledPattern> list;
  for (const SecretPattern& pattern : secretPatterns) {
    list.push_back({pattern.literal, std::make_unique<RE2>(pattern.expression, RE2::Latin1)});
    // A pattern of ours that does not compile is a fault in this file.
    if (!list.back().expression->ok()) std::abort();
  }
  return list;
}

// The whole number that a character means ("7", "٧", "⑦"); absent for fractions and for no numbers.
std::optional<std::int64_t> wholeNumber(UChar32 character) {
  if (character >= '0' && character <= '9') return character - '0';
  const double value = u_getNumericValue(character);
  if (value == U_NO_NUMERIC_VALUE || value != std::floor(value) || std::abs(value) > 1e15) return std::nullopt;
  return static_cast<std::int64_t>(value);
}

}  // namespace

bool SensitiveText::isSensitive(std::string_view text) {
  static const std::vector<CompiledPattern> patterns = compiled();
  const std::string_view whole = trimmedOfWhitespace(text);
  for (const CompiledPattern& pattern : patterns)
    if (whole.find(pattern.literal) != std::string_view::npos &&
        RE2::PartialMatch(expressionInput(whole), *pattern.expression))
      return true;
  return isCardNumber(whole);
}

bool SensitiveText::isCardNumber(std::string_view text) {
  constexpr std::size_t fewest = 13, most = 19;
  std::array<std::int64_t, most> digits{};
  std::size_t count = 0;
  for (std::size_t i = 0; i < text.size();) {
    UChar32 character;
    U8_NEXT(text.data(), i, text.size(), character);
    if (character == ' ' || character == '-') continue;
    if (character < 0 || u_getNumericValue(character) == U_NO_NUMERIC_VALUE) return false;
    const auto value = wholeNumber(character);
    if (!value) continue;
    if (count == most) return false;
    digits[count++] = *value;
  }
  if (count < fewest) return false;
  std::int64_t sum = 0;
  for (std::size_t fromEnd = 0; fromEnd < count; ++fromEnd) {
    const std::int64_t digit = digits[count - 1 - fromEnd];
    if (fromEnd % 2 == 0)
      sum += digit;
    else
      sum += digit >= 5 ? 2 * digit - 9 : 2 * digit;
  }
  return sum % 10 == 0;
}

}  // namespace ambrel
