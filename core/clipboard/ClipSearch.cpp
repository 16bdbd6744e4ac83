#include <array>
#include <string.h>

#include "core/base/Whitespace.h"
#include "core/clipboard.h"

namespace ambrel {
namespace {

// string_view::find looks for the first byte alone and is several times slower on ordinary text.
bool contains(std::string_view text, std::string_view needle) {
  return memmem(text.data(), text.size(), needle.data(), needle.size()) != nullptr;
}

}  // namespace

ClipQuery::ClipQuery(std::string_view typed, SearchFolding folding)
    : folding_(folding), folded_(folding.folded(trimmedOfBlanks(typed))) {}

bool ClipQuery::matches(const ClipItem& item) const {
  if (isEmpty()) return true;
  if (!item.text) return false;
  return folding_.leavesSearchable(*item.text) ? matchesASCII(*item.text) : matchesFolded(folding_.folded(*item.text));
}

bool ClipQuery::matchesFolded(std::string_view foldedText) const { return contains(foldedText, folded_); }

bool ClipQuery::matchesASCII(std::string_view text) const {
  // Through a window that stays in the processor's cache, so that no text is copied as a whole.
  std::array<char, 8192> window;
  if (folded_.size() > window.size() / 2) return contains(folding_.folded(text), folded_);
  const std::size_t step = window.size() - folded_.size() + 1;
  for (std::size_t begin = 0; begin + folded_.size() <= text.size(); begin += step) {
    const std::string_view piece = text.substr(begin, window.size());
    lowerASCII(piece, window.data());
    if (contains({window.data(), piece.size()}, folded_)) return true;
  }
  return false;
}

std::vector<ClipItem> ClipboardLibrary::filtered(std::span<const ClipItem> items, const ClipFilter& filter,
                                                 std::string_view query, SearchFolding folding) {
  const ClipQuery search(query, folding);
  std::vector<ClipItem> found;
  for (const ClipItem& item : items)
    if (filter.admits(item) && search.matches(item)) found.push_back(item);
  return found;
}

}  // namespace ambrel
