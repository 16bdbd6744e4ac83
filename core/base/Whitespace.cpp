#include "core/base/Whitespace.h"

#include <cstdint>
#include <unicode/utf8.h>

namespace ambrel {
namespace {

bool isWhitespace(char32_t character) { return isBlank(character) || isNewline(character); }

// Bytes that are no UTF-8 read as a negative character, which nothing trims.
template <typename Predicate>
std::string_view trimmedWhere(std::string_view text, Predicate isTrimmed) {
  const char* bytes = text.data();
  std::size_t begin = 0, end = text.size();
  while (begin < end) {
    std::size_t next = begin;
    UChar32 character;
    U8_NEXT(bytes, next, end, character);
    if (character < 0 || !isTrimmed(static_cast<char32_t>(character))) break;
    begin = next;
  }
  while (end > begin) {
    // The macro takes 32-bit positions; a character has four bytes at most.
    const std::size_t from = end - begin > 4 ? end - 4 : begin;
    auto previous = static_cast<std::int32_t>(end - from);
    UChar32 character;
    U8_PREV(bytes + from, 0, previous, character);
    if (character < 0 || !isTrimmed(static_cast<char32_t>(character))) break;
    end = from + static_cast<std::size_t>(previous);
  }
  return text.substr(begin, end - begin);
}

}  // namespace

bool isBlank(char32_t character) {
  if (character == U' ' || character == U'\t') return true;
  if (character < 0xA0) return false;
  return character == 0xA0 || character == 0x1680 || (character >= 0x2000 && character <= 0x200A) ||
         character == 0x202F || character == 0x205F || character == 0x3000;
}

bool isNewline(char32_t character) {
  return (character >= 0x0A && character <= 0x0D) || character == 0x85 || character == 0x2028 || character == 0x2029;
}

std::string_view trimmedOfBlanks(std::string_view text) { return trimmedWhere(text, isBlank); }

std::string_view trimmedOfWhitespace(std::string_view text) { return trimmedWhere(text, isWhitespace); }

bool hasWhitespace(std::string_view text) {
  const char* bytes = text.data();
  for (std::size_t i = 0; i < text.size();) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    if (byte < 0x80) {
      if (isWhitespace(byte)) return true;
      ++i;
      continue;
    }
    UChar32 character;
    U8_NEXT(bytes, i, text.size(), character);
    if (character >= 0 && isWhitespace(static_cast<char32_t>(character))) return true;
  }
  return false;
}

}  // namespace ambrel
