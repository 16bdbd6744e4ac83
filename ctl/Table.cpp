#include "ctl/Table.h"

#include <algorithm>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace ambrel {
namespace {

constexpr std::string_view gap = "  ";
constexpr std::size_t narrowest = 12;

// The code point at `at`, which moves past it; below 0 for a byte that is not valid UTF-8.
UChar32 next(std::string_view text, std::size_t& at) {
  UChar32 character = 0;
  auto index = static_cast<std::int32_t>(at);
  U8_NEXT(text.data(), index, static_cast<std::int32_t>(text.size()), character);
  at = static_cast<std::size_t>(index);
  return character;
}

std::size_t widthOf(UChar32 character) {
  if (character < 0) return 1;
  const auto category = U_GET_GC_MASK(character);
  if (category & (U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK)) return 0;
  const int width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
  return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

}  // namespace

std::size_t displayWidth(std::string_view text) {
  std::size_t width = 0;
  for (std::size_t at = 0; at < text.size();) width += widthOf(next(text, at));
  return width;
}

std::string elided(std::string_view text, std::size_t columns) {
  if (displayWidth(text) <= columns) return std::string(text);
  if (columns == 0) return {};
  std::size_t width = 0, kept = 0;
  for (std::size_t at = 0; at < text.size(); kept = at) {
    width += widthOf(next(text, at));
    if (width > columns - 1) break;
  }
  return std::string(text.substr(0, kept)) + "…";
}

std::string printable(std::string_view text) {
  std::string clean;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t from = at;
    const UChar32 character = next(text, at);
    const auto category = character < 0 ? U_GC_CC_MASK : U_GET_GC_MASK(character);
    // Line and paragraph separators, and the marks that turn the direction of text, count with them.
    const bool isTurn = (character >= 0x202a && character <= 0x202e) || (character >= 0x2066 && character <= 0x2069);
    if (isTurn || (category & (U_GC_CC_MASK | U_GC_ZL_MASK | U_GC_ZP_MASK)))
      clean += ' ';
    else
      clean += text.substr(from, at - from);
  }
  return clean;
}

std::string table(const std::vector<std::vector<Cell>>& rows, std::size_t flexible, const Context& context) {
  if (rows.empty()) return {};
  std::vector<std::size_t> widths(rows.front().size(), 0);
  for (const auto& row : rows)
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], displayWidth(printable(row[i].text)));

  std::size_t total = 0;
  for (const std::size_t width : widths)
    if (width > 0) total += (total > 0 ? gap.size() : 0) + width;
  if (const std::size_t room = context.out.columns(); room > 0 && total > room) {
    const std::size_t excess = total - room;
    const std::size_t least = std::min(widths[flexible], narrowest);
    widths[flexible] = std::max(least, widths[flexible] > excess ? widths[flexible] - excess : 0);
  }

  std::string text;
  for (const auto& row : rows) {
    std::string line;
    std::size_t blanks = 0;  // written only in front of something
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (widths[i] == 0) continue;
      const std::string shown = elided(printable(row[i].text), widths[i]);
      if (!shown.empty()) {
        line.append(blanks, ' ').append(context.styled(row[i].style, shown));
        blanks = 0;
      }
      blanks += widths[i] - displayWidth(shown) + gap.size();
    }
    text += line + "\n";
  }
  return text;
}

}  // namespace ambrel
