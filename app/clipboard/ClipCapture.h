#pragma once
// Turns what was read from the pasteboard into clips, in the order of the copies, however long each one takes.

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "app/base/Background.h"
#include "app/clipboard/ClipboardStorage.h"
#include "core/clipboard/ClipIndex.h"

namespace ambrel {

class ClipCapture {
 public:
  ClipCapture(ClipboardStorage& storage, Background background, SearchFolding folding);

  // Called for each copy, with its change count; without a clip for one that makes none.
  std::function<void(std::optional<CapturedClip>, std::int64_t changeCount)> onCaptured;

  // The pictures of clips that are ready and wait for an earlier one.
  std::set<std::string> waitingPictures() const;

  void take(PasteboardContents contents, std::int64_t changeCount, ClipOrigin origin);

 private:
  // A copy that keeps its place in the order until its clip is ready.
  struct Slot {
    std::int64_t changeCount = 0;
    bool isDone = false;
    std::optional<CapturedClip> clip = {};
  };
  void fill(Slot& slot, std::optional<CapturedClip> clip);

  ClipboardStorage& storage_;
  Background background_;
  SearchFolding folding_;
  std::deque<std::shared_ptr<Slot>> slots_;
};

}  // namespace ambrel
