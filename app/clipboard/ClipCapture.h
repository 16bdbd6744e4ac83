#pragma once
// Makes clips of what is read from the pasteboard, in the order of the copies, however long each of them takes.

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "app/base/Background.h"
#include "app/clipboard/ClipboardStorage.h"
#include "core/clipboard/Capture.h"
#include "core/clipboard/ClipIndex.h"

namespace ambrel {

struct CapturedClip {
  ClipItem item;
  ClipFacts facts;
  std::int64_t changeCount = 0;  // the copy that it was
};

class ClipCapture {
 public:
  ClipCapture(ClipboardStorage& storage, Background background, SearchFolding folding);

  // Called for each copy that holds something to keep.
  std::function<void(CapturedClip)> onCaptured;

  // The pictures of clips that are ready and wait for an earlier one.
  std::set<std::string> waitingPictures() const;

  void take(PasteboardContents contents, std::int64_t changeCount, ClipOrigin origin);

 private:
  // A copy that has its place in the order and waits for its contents.
  struct Slot {
    bool isDone = false;
    std::optional<CapturedClip> clip;
  };
  std::shared_ptr<Slot> newSlot();
  void fill(const std::shared_ptr<Slot>& slot, std::optional<CapturedClip> clip);
  void takePicture(PasteboardContents contents, std::int64_t changeCount, ClipOrigin origin);

  ClipboardStorage& storage_;
  Background background_;
  SearchFolding folding_;
  std::deque<std::shared_ptr<Slot>> slots_;
};

}  // namespace ambrel
