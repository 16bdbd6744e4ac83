#include "core/clipboard/ClipboardHistory.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "core/base/Whitespace.h"

namespace ambrel {
namespace {

constexpr int mostPinNumbers = 9;
constexpr Seconds sweepInterval{300};

HistoryEffects marked(const ClipItem& item) {
  HistoryEffects effects{.needsSave = true, .changes = {}, .unusedImages = {}};
  effects.changes.push_back(LibraryChange::mark(item));
  return effects;
}

}  // namespace

ClipboardHistory::ClipboardHistory(ClipboardLibrary library, std::int64_t changeCount)
    : library_(std::move(library)), lastChangeCount_(changeCount) {
  if (!library_.items.empty()) currentItemID_ = library_.items.front().id;
}

const ClipItem* ClipboardHistory::item(const UUID& id) const {
  const auto found = std::ranges::find(library_.items, id, &ClipItem::id);
  return found == library_.items.end() ? nullptr : &*found;
}

ClipItem* ClipboardHistory::find(const UUID& id) {
  const auto found = std::ranges::find(library_.items, id, &ClipItem::id);
  return found == library_.items.end() ? nullptr : &*found;
}

bool ClipboardHistory::noticeChange(std::int64_t changeCount, const CaptureSettings& settings,
                                    const std::optional<std::string>& frontmost) {
  if (changeCount == lastChangeCount_) return false;
  lastChangeCount_ = changeCount;
  currentItemID_.reset();
  if (!settings.isEnabled) return false;
  return !frontmost || std::ranges::find(settings.ignoredBundleIDs, *frontmost) == settings.ignoredBundleIDs.end();
}

void ClipboardHistory::noticeOwnWrite(std::int64_t changeCount, std::optional<UUID> id) {
  lastChangeCount_ = changeCount;
  currentItemID_ = id;
}

HistoryEffects ClipboardHistory::add(ClipItem item, const CaptureSettings& settings) {
  const ClipItem* same = library_.itemLike(item);
  const UUID id = same == nullptr ? item.id : same->id;
  std::vector<ClipItem> evicted = library_.add(std::move(item), settings.limit);
  for (ClipItem& large : library_.evictBeyond(CaptureLimits::libraryText)) evicted.push_back(std::move(large));
  // With a limit of 0 it is already gone.
  const bool isKept = !library_.items.empty() && library_.items.front().id == id;
  currentItemID_ = isKept ? std::optional(id) : std::nullopt;
  HistoryEffects effects{.needsSave = true, .changes = {}, .unusedImages = unusedImages(evicted)};
  if (isKept) effects.changes.push_back(LibraryChange::put(library_.items.front()));
  if (!evicted.empty()) effects.changes.push_back(LibraryChange::drop(evicted));
  return effects;
}

std::optional<int> ClipboardHistory::pinNumber(const UUID& id) const {
  int number = 0;
  for (const ClipItem& item : library_.items) {
    if (!item.isPinned) continue;
    if (++number > mostPinNumbers) return std::nullopt;
    if (item.id == id) return number;
  }
  return std::nullopt;
}

const ClipItem* ClipboardHistory::pinnedItem(int number) const {
  if (number < 1 || number > mostPinNumbers) return nullptr;
  for (const ClipItem& item : library_.items)
    if (item.isPinned && --number == 0) return &item;
  return nullptr;
}

HistoryEffects ClipboardHistory::togglePin(const UUID& id) {
  ClipItem* item = find(id);
  if (item == nullptr) return {};
  item->isPinned = !item->isPinned;
  return marked(*item);
}

HistoryEffects ClipboardHistory::toggleCollection(const UUID& itemID, const UUID& collection) {
  ClipItem* item = find(itemID);
  if (item == nullptr) return {};
  if (item->collectionIDs.erase(collection) == 0) item->collectionIDs.insert(collection);
  return marked(*item);
}

HistoryEffects ClipboardHistory::createCollection(const UUID& id, std::string_view name) {
  name = trimmedOfBlanks(name);
  if (name.empty()) return {};
  library_.collections.push_back({.id = id, .name = std::string(name)});
  return {.needsSave = true, .changes = {}, .unusedImages = {}};
}

HistoryEffects ClipboardHistory::renameCollection(const UUID& id, std::string_view name) {
  const auto found = std::ranges::find(library_.collections, id, &ClipCollection::id);
  if (found == library_.collections.end()) return {};
  found->name = name;
  return {.needsSave = true, .changes = {}, .unusedImages = {}};
}

HistoryEffects ClipboardHistory::deleteCollection(const UUID& id) {
  HistoryEffects effects = endUndo();
  const auto found = std::ranges::find(library_.collections, id, &ClipCollection::id);
  if (found == library_.collections.end()) return effects;
  deletedCollection_ = {
      .collection = *found, .position = static_cast<std::size_t>(found - library_.collections.begin()), .items = {}};
  library_.collections.erase(found);
  for (ClipItem& item : library_.items)
    if (item.collectionIDs.erase(id) > 0) deletedCollection_->items.push_back(item.id);
  effects.needsSave = true;
  return effects;
}

HistoryEffects ClipboardHistory::remove(std::span<const UUID> ids, bool isUndoable) {
  const std::unordered_set<UUID> wanted(ids.begin(), ids.end());
  std::vector<ClipItem> removed;
  std::vector<ClipItem> kept;
  kept.reserve(library_.items.size());
  for (ClipItem& item : library_.items) (wanted.contains(item.id) ? removed : kept).push_back(std::move(item));
  library_.items = std::move(kept);
  if (removed.empty()) return {};
  if (currentItemID_ && wanted.contains(*currentItemID_)) currentItemID_.reset();
  HistoryEffects effects{.needsSave = true, .changes = {}, .unusedImages = {}};
  if (isUndoable) {
    deletedCollection_.reset();
    const std::vector<ClipItem> earlier = std::exchange(removedForUndo_, std::move(removed));
    effects.unusedImages = unusedImages(earlier);
  } else {
    effects.unusedImages = unusedImages(removed);
  }
  return effects;
}

HistoryEffects ClipboardHistory::undoRemove() {
  if (deletedCollection_) return undoDeleteCollection();
  if (removedForUndo_.empty()) return {};
  for (ClipItem& item : removedForUndo_) {
    // The same content may have been copied again meanwhile; there is still only one clip of it.
    const auto same =
        std::ranges::find_if(library_.items, [&](const ClipItem& other) { return other.hasSameContent(item); });
    if (same == library_.items.end()) {
      library_.items.push_back(std::move(item));
    } else {
      same->isPinned = same->isPinned || item.isPinned;
      same->collectionIDs.merge(item.collectionIDs);
    }
  }
  removedForUndo_.clear();
  std::ranges::stable_sort(library_.items, std::ranges::greater(), &ClipItem::createdAt);
  return {.needsSave = true, .changes = {}, .unusedImages = {}};
}

HistoryEffects ClipboardHistory::undoDeleteCollection() {
  const DeletedCollection deleted = *std::exchange(deletedCollection_, std::nullopt);
  auto& all = library_.collections;
  all.insert(all.begin() + static_cast<std::ptrdiff_t>(std::min(deleted.position, all.size())), deleted.collection);
  for (const UUID& id : deleted.items)
    if (ClipItem* item = find(id)) item->collectionIDs.insert(deleted.collection.id);
  return {.needsSave = true, .changes = {}, .unusedImages = {}};
}

HistoryEffects ClipboardHistory::endUndo() {
  deletedCollection_.reset();
  const std::vector<ClipItem> ended = std::exchange(removedForUndo_, {});
  return {.needsSave = false, .changes = {}, .unusedImages = unusedImages(ended)};
}

HistoryEffects ClipboardHistory::clear() {
  std::vector<UUID> ids;
  for (const ClipItem& item : library_.items)
    if (!item.isProtected()) ids.push_back(item.id);
  return remove(ids, false);
}

HistoryEffects ClipboardHistory::sweep(Instant now, const CaptureSettings& settings,
                                       const std::function<bool(const ClipItem&)>& isSensitive) {
  // A clock that was set back must not stop the sweeps until it has caught up.
  const bool isDue =
      !lastExpiryCheck_ || now < *lastExpiryCheck_ || secondsBetween(*lastExpiryCheck_, now) > sweepInterval;
  if (!isDue) return {};
  lastExpiryCheck_ = now;
  std::vector<UUID> ids;
  for (const ClipItem& item :
       ClipCleanup::expired(library_.items, now, settings.maxAge(), settings.sensitiveAge(), isSensitive))
    ids.push_back(item.id);
  return remove(ids, false);
}

std::set<std::string> ClipboardHistory::usedImages() const {
  std::set<std::string> names;
  for (const auto* items : {&library_.items, &removedForUndo_})
    for (const ClipItem& item : *items)
      if (item.imageFileName) names.insert(*item.imageFileName);
  return names;
}

std::vector<std::string> ClipboardHistory::unusedImages(std::span<const ClipItem> dropped) const {
  std::set<std::string> names;
  for (const ClipItem& item : dropped)
    if (item.imageFileName) names.insert(*item.imageFileName);
  if (names.empty()) return {};
  for (const std::string& used : usedImages()) names.erase(used);
  return {names.begin(), names.end()};
}

}  // namespace ambrel
