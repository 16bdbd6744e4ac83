#include "core/base/SearchFolding.h"

#include <algorithm>
#include <cstdint>
#include <string.h>
#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include "core/base/Text.h"

namespace ambrel {
namespace {

bool isASCII(std::string_view text) {
  // Eight bytes at a time, without a branch.
  std::uint64_t bits = 0;
  std::size_t i = 0;
  for (; i + sizeof bits <= text.size(); i += sizeof bits) {
    std::uint64_t word = 0;
    memcpy(&word, text.data() + i, sizeof word);
    bits |= word;
  }
  for (; i < text.size(); ++i) bits |= static_cast<unsigned char>(text[i]);
  return (bits & 0x8080808080808080) == 0;
}

// Marks that people leave out when they type: accents, Hebrew points, Arabic vowel signs. Marks that make another
// letter (the voiced kana, the vowels of Indic scripts) are not among them.
bool isDiacritic(char16_t unit) {
  return (unit >= 0x0300 && unit <= 0x036F) || (unit >= 0x0483 && unit <= 0x0487) ||
         (unit >= 0x0591 && unit <= 0x05BD) || unit == 0x05BF || unit == 0x05C1 || unit == 0x05C2 || unit == 0x05C4 ||
         unit == 0x05C5 || unit == 0x05C7 || (unit >= 0x064B && unit <= 0x065F) || unit == 0x0670 ||
         (unit >= 0x1AB0 && unit <= 0x1AFF) || (unit >= 0x1DC0 && unit <= 0x1DFF) ||
         (unit >= 0x20D0 && unit <= 0x20FF) || (unit >= 0xFE20 && unit <= 0xFE2F);
}

icu::UnicodeString normalized(const icu::Normalizer2* form, const icu::UnicodeString& text) {
  UErrorCode error = U_ZERO_ERROR;
  icu::UnicodeString out = form->normalize(text, error);
  return U_SUCCESS(error) ? out : text;
}

icu::UnicodeString withoutCase(const icu::Normalizer2* composed, std::string_view text, bool hasDotlessI) {
  icu::UnicodeString wide =
      normalized(composed, icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())}));
  wide.foldCase(hasDotlessI ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT);
  return wide;
}

}  // namespace

void lowerASCII(std::string_view text, char* out) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    out[i] = static_cast<char>(c + (c >= 'A' && c <= 'Z' ? 'a' - 'A' : 0));
  }
}

SearchFolding SearchFolding::forLocale(std::string_view locale) {
  const std::string language = asciiLower(locale.substr(0, locale.find_first_of("_-.@")));
  return {.hasDotlessI = language == "tr" || language == "az"};
}

bool SearchFolding::leavesSearchable(std::string_view text) const { return !hasDotlessI && isASCII(text); }

std::string SearchFolding::folded(std::string_view text) const {
  if (leavesSearchable(text)) {
    std::string out(text.size(), '\0');
    lowerASCII(text, out.data());
    return out;
  }
  UErrorCode error = U_ZERO_ERROR;
  const icu::Normalizer2* composed = icu::Normalizer2::getNFCInstance(error);
  const icu::Normalizer2* decomposed = icu::Normalizer2::getNFDInstance(error);
  if (U_FAILURE(error)) return std::string(text);
  const icu::UnicodeString wide = normalized(decomposed, withoutCase(composed, text, hasDotlessI));
  // Only whole units of the basic plane go, so the buffer stays valid UTF-16.
  icu::UnicodeString plain;
  char16_t* out = plain.getBuffer(std::max<std::int32_t>(wide.length(), 1));
  if (out == nullptr) return std::string(text);
  const char16_t* in = wide.getBuffer();
  char16_t* end = std::copy_if(in, in + wide.length(), out, [](char16_t unit) { return !isDiacritic(unit); });
  plain.releaseBuffer(static_cast<std::int32_t>(end - out));
  std::string result;
  normalized(composed, plain).toUTF8String(result);
  return result;
}

std::string SearchFolding::caseFolded(std::string_view text) const {
  UErrorCode error = U_ZERO_ERROR;
  const icu::Normalizer2* composed = icu::Normalizer2::getNFCInstance(error);
  if (U_FAILURE(error)) return std::string(text);
  std::string result;
  withoutCase(composed, text, hasDotlessI).toUTF8String(result);
  return result;
}

bool SearchFolding::contains(std::string_view text, std::string_view part) const {
  return !part.empty() && folded(text).find(folded(part)) != std::string::npos;
}

}  // namespace ambrel
