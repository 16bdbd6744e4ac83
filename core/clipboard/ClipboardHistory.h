#pragma once
// The history as it is used: the library with what is on the pasteboard now, what may still be undone, and when the
// last sweep was. A value; what must happen outside of it comes back as data.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/clipboard.h"
#include "core/clipboard/Capture.h"
#include "core/clipboard/LibraryChange.h"

namespace ambrel {

// What a step of the history asks for. The library is to be saved before the pictures are deleted: a crash between
// the two then leaves pictures that nothing names, never names without pictures.
struct HistoryEffects {
  bool needsSave = false;
  // What has changed, when that is all there is to save; empty when the whole library is to be saved. What the user
  // deletes is one of these cases: its text must not stay in the file.
  std::vector<LibraryChange> changes = {};
  std::vector<std::string> unusedImages;  // file names that no live and no undoable item uses

  friend bool operator==(const HistoryEffects&, const HistoryEffects&) = default;
};

class ClipboardHistory {
 public:
  ClipboardHistory() = default;
  // The first item of the library is taken to be what is on the pasteboard; what is there at `changeCount` is
  // not recorded.
  ClipboardHistory(ClipboardLibrary library, std::int64_t changeCount);

  const ClipboardLibrary& library() const { return library_; }
  const ClipItem* item(const UUID& id) const;
  // The item that is on the pasteboard, if one is known to be.
  const std::optional<UUID>& currentItemID() const { return currentItemID_; }
  std::int64_t lastChangeCount() const { return lastChangeCount_; }
  std::size_t undoableCount() const { return removedForUndo_.size(); }
  bool canUndoCollection() const { return deletedCollection_.has_value(); }
  std::span<const ClipItem> undoableItems() const { return removedForUndo_; }

  // Takes notice of the pasteboard's change count. True when the change is new and is to be read: capture is on and
  // the application in front is not ignored.
  bool noticeChange(std::int64_t changeCount, const CaptureSettings& settings,
                    const std::optional<std::string>& frontmost);
  // The program itself has written the item (absent: something that is not one) to the pasteboard.
  void noticeOwnWrite(std::int64_t changeCount, std::optional<UUID> id);

  HistoryEffects add(ClipItem item, const CaptureSettings& settings);

  // Position among the pinned items, from 1, of the first nine of them.
  std::optional<int> pinNumber(const UUID& id) const;
  // The pinned item of that number, 1 to 9.
  const ClipItem* pinnedItem(int number) const;

  HistoryEffects togglePin(const UUID& id);
  HistoryEffects toggleCollection(const UUID& item, const UUID& collection);
  // A name of nothing but blanks makes none.
  HistoryEffects createCollection(const UUID& id, std::string_view name);
  HistoryEffects renameCollection(const UUID& id, std::string_view name);
  // Its items stay. It is held until endUndo; what is held earlier ends.
  HistoryEffects deleteCollection(const UUID& id);

  // With `isUndoable` the items are held until endUndo; an earlier batch ends.
  HistoryEffects remove(std::span<const UUID> ids, bool isUndoable);
  // Brings back what is held: the items, or the collection with the items that were in it.
  HistoryEffects undoRemove();
  HistoryEffects endUndo();
  // All unprotected items, at once and for good.
  HistoryEffects clear();

  // Removes what has expired, at most every 300 seconds.
  HistoryEffects sweep(Instant now, const CaptureSettings& settings,
                       const std::function<bool(const ClipItem&)>& isSensitive);

  // Every picture that a live or an undoable item uses.
  std::set<std::string> usedImages() const;

 private:
  ClipItem* find(const UUID& id);
  HistoryEffects undoDeleteCollection();
  std::vector<std::string> unusedImages(std::span<const ClipItem> dropped) const;

  ClipboardLibrary library_;
  std::optional<UUID> currentItemID_;
  std::int64_t lastChangeCount_ = 0;
  std::vector<ClipItem> removedForUndo_;
  struct DeletedCollection {
    ClipCollection collection;
    std::size_t position = 0;
    std::vector<UUID> items;
  };
  std::optional<DeletedCollection> deletedCollection_;
  std::optional<Instant> lastExpiryCheck_;
};

}  // namespace ambrel
