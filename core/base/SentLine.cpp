#include "core/base/SentLine.h"

#include <algorithm>
#include <cstdint>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <utility>

namespace ambrel {
namespace {

bool turnsDirection(UChar32 c) {
  return c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

}  // namespace

std::string sentLine(std::string_view text, std::size_t most) {
  // No code point has more bytes than four, so the rest need not be looked at; blanks apart.
  const auto all = icu::UnicodeString::fromUTF8(
      icu::StringPiece(text.data(), static_cast<std::int32_t>(std::min(text.size(), most * 16))));
  icu::UnicodeString line;
  std::size_t count = 0;
  bool wantsBlank = false;
  for (std::int32_t i = 0; i < all.length(); i = all.moveIndex32(i, 1)) {
    const UChar32 c = all.char32At(i);
    if (u_isUWhiteSpace(c)) {
      wantsBlank = !line.isEmpty();
      continue;
    }
    if (u_charType(c) == U_CONTROL_CHAR || turnsDirection(c)) continue;
    if (count + (wantsBlank ? 1 : 0) >= most) {
      line.truncate(line.moveIndex32(line.length(), -1));
      line.append(UChar32{0x2026});
      break;
    }
    if (std::exchange(wantsBlank, false)) {
      line.append(u' ');
      ++count;
    }
    line.append(c);
    ++count;
  }
  std::string out;
  line.toUTF8String(out);
  return out;
}

}  // namespace ambrel
