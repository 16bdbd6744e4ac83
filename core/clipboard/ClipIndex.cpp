#include "core/clipboard/ClipIndex.h"

#include <unordered_set>

#include "core/base/Whitespace.h"

namespace ambrel {

ClipFacts factsOf(const ClipItem& item, SearchFolding folding) {
  ClipFacts facts;
  if (item.kind == ClipKind::text && item.text) facts.isSensitive = SensitiveText::isSensitive(*item.text);
  facts.preview = previewOf(item, facts.isSensitive);
  if (item.text && !folding.leavesSearchable(*item.text)) facts.foldedText = folding.folded(*item.text);
  return facts;
}

std::optional<CapturedClip> captured(PasteboardContents contents, const std::optional<SavedPicture>& picture,
                                     ClipOrigin origin, SearchFolding folding) {
  std::optional<ClipItem> item;
  if (!contents.filePaths.empty()) {
    item = fileItem(contents.filePaths, std::move(origin));
  } else if (picture) {
    item = imageItem(picture->name, std::move(origin));
    if (contents.text && !trimmedOfWhitespace(*contents.text).empty()) item->text = std::move(contents.text);
  } else if (contents.text) {
    item = textItem(std::move(*contents.text), std::move(origin));
  }
  if (!item) return std::nullopt;
  ClipFacts facts = factsOf(*item, folding);
  if (picture) facts.pictureSize = picture->size;
  return CapturedClip{.item = std::move(*item), .facts = std::move(facts)};
}

const ClipFacts* ClipIndex::find(const UUID& id) const {
  const auto found = facts_.find(id);
  return found == facts_.end() ? nullptr : &found->second;
}

const ClipFacts& ClipIndex::of(const ClipItem& item) {
  const auto found = facts_.find(item.id);
  if (found != facts_.end()) return found->second;
  return facts_.emplace(item.id, factsOf(item, folding_)).first->second;
}

void ClipIndex::retain(std::span<const ClipItem> items, std::span<const ClipItem> andThese) {
  std::unordered_set<UUID> kept;
  for (const auto& list : {items, andThese})
    for (const ClipItem& item : list) kept.insert(item.id);
  std::erase_if(facts_, [&](const auto& entry) { return !kept.contains(entry.first); });
}

std::vector<std::size_t> ClipIndex::matches(std::span<const ClipItem> items, const ClipFilter& filter,
                                            std::string_view query) const {
  // To look a short text through takes less time than to find its facts, which are anywhere in memory.
  constexpr std::size_t shortText = 2048;
  const ClipQuery search(query, folding_);
  const auto admits = [&](const ClipItem& item) {
    if (search.isEmpty()) return true;
    if (!item.text) return false;
    const bool isShort = item.text->size() <= shortText;
    if (isShort && folding_.leavesSearchable(*item.text)) return search.matchesASCII(*item.text);
    const ClipFacts* facts = find(item.id);
    if (facts == nullptr) return search.matches(item);
    return facts->foldedText ? search.matchesFolded(*facts->foldedText) : search.matchesASCII(*item.text);
  };
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i < items.size(); ++i)
    if (filter.admits(items[i]) && admits(items[i])) found.push_back(i);
  return found;
}

}  // namespace ambrel
