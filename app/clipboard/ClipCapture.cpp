#include "app/clipboard/ClipCapture.h"

#include <utility>

namespace ambrel {
namespace {

// A text up to this length is looked through in well under a millisecond.
constexpr std::size_t shortText = 64u << 10;

}  // namespace

ClipCapture::ClipCapture(ClipboardStorage& storage, Background background, SearchFolding folding)
    : storage_(storage), background_(std::move(background)), folding_(folding) {}

void ClipCapture::fill(Slot& slot, std::optional<CapturedClip> clip) {
  slot.isDone = true;
  slot.clip = std::move(clip);
  while (!slots_.empty() && slots_.front()->isDone) {
    const auto ready = std::move(slots_.front());
    slots_.pop_front();
    onCaptured(std::move(ready->clip), ready->changeCount);
  }
}

std::set<std::string> ClipCapture::waitingPictures() const {
  std::set<std::string> names;
  for (const auto& slot : slots_)
    if (slot->clip && slot->clip->item.imageFileName) names.insert(*slot->clip->item.imageFileName);
  return names;
}

void ClipCapture::take(PasteboardContents contents, std::int64_t changeCount, ClipOrigin origin) {
  if (contents.isEmpty()) return onCaptured(std::nullopt, changeCount);
  const auto slot = slots_.emplace_back(std::make_shared<Slot>(Slot{.changeCount = changeCount}));
  const auto source = std::make_shared<PasteboardContents>(std::move(contents));
  if (source->filePaths.empty() && source->picture) {
    storage_.savePicture(std::move(*source->picture), [this, slot, source, origin](const auto& saved) {
      fill(*slot, captured(std::move(*source), saved, origin, folding_));
    });
  } else if (!source->text || source->text->size() <= shortText) {
    fill(*slot, captured(std::move(*source), {}, std::move(origin), folding_));
  } else {
    const auto clip = std::make_shared<std::optional<CapturedClip>>();
    background_(
        [source, clip, origin, folding = folding_] { *clip = captured(std::move(*source), {}, origin, folding); },
        [this, slot, clip] { fill(*slot, std::move(*clip)); });
  }
}

}  // namespace ambrel
