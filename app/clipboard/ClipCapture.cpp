#include "app/clipboard/ClipCapture.h"

#include <utility>

#include "core/base/Whitespace.h"

namespace ambrel {
namespace {

// A text up to this length is looked through in well under a millisecond.
constexpr std::size_t shortText = 64u << 10;

std::optional<CapturedClip> clipOf(PasteboardContents contents, SearchFolding folding, std::int64_t changeCount,
                                   ClipOrigin origin) {
  std::optional<ClipItem> item;
  if (!contents.filePaths.empty())
    item = fileItem(contents.filePaths, std::move(origin));
  else if (contents.text)
    item = textItem(std::move(*contents.text), std::move(origin));
  if (!item) return std::nullopt;
  ClipFacts facts = factsOf(*item, folding);
  return CapturedClip{.item = std::move(*item), .facts = std::move(facts), .changeCount = changeCount};
}

}  // namespace

ClipCapture::ClipCapture(ClipboardStorage& storage, Background background, SearchFolding folding)
    : storage_(storage), background_(std::move(background)), folding_(folding) {}

std::shared_ptr<ClipCapture::Slot> ClipCapture::newSlot() {
  slots_.push_back(std::make_shared<Slot>());
  return slots_.back();
}

void ClipCapture::fill(const std::shared_ptr<Slot>& slot, std::optional<CapturedClip> clip) {
  slot->isDone = true;
  slot->clip = std::move(clip);
  while (!slots_.empty() && slots_.front()->isDone) {
    const auto ready = std::move(slots_.front());
    slots_.pop_front();
    if (ready->clip) onCaptured(std::move(*ready->clip));
  }
}

std::set<std::string> ClipCapture::waitingPictures() const {
  std::set<std::string> names;
  for (const auto& slot : slots_)
    if (slot->clip && slot->clip->item.imageFileName) names.insert(*slot->clip->item.imageFileName);
  return names;
}

void ClipCapture::take(PasteboardContents contents, std::int64_t changeCount, ClipOrigin origin) {
  if (contents.isEmpty()) return;
  if (contents.filePaths.empty() && contents.picture)
    return takePicture(std::move(contents), changeCount, std::move(origin));
  const auto slot = newSlot();
  if (!contents.text || contents.text->size() <= shortText)
    return fill(slot, clipOf(std::move(contents), folding_, changeCount, std::move(origin)));
  auto source = std::make_shared<PasteboardContents>(std::move(contents));
  auto clip = std::make_shared<std::optional<CapturedClip>>();
  background_([source, clip, folding = folding_, changeCount,
               origin] { *clip = clipOf(std::move(*source), folding, changeCount, origin); },
              [this, slot, clip] { fill(slot, std::move(*clip)); });
}

void ClipCapture::takePicture(PasteboardContents contents, std::int64_t changeCount, ClipOrigin origin) {
  auto picture = std::move(*contents.picture);
  contents.picture.reset();
  auto text = std::make_shared<PasteboardContents>(std::move(contents));
  storage_.savePicture(std::move(picture), [this, slot = newSlot(), text, changeCount,
                                            origin](const std::optional<ClipboardStorage::SavedPicture>& saved) {
    // A picture that cannot be kept yields to the text beside it.
    if (!saved) return fill(slot, clipOf(std::move(*text), folding_, changeCount, origin));
    ClipItem item = imageItem(saved->name, origin);
    if (text->text && !trimmedOfWhitespace(*text->text).empty()) item.text = std::move(text->text);
    ClipFacts facts = factsOf(item, folding_);
    facts.pictureSize = saved->size;
    fill(slot, CapturedClip{.item = std::move(item), .facts = std::move(facts), .changeCount = changeCount});
  });
}

}  // namespace ambrel
