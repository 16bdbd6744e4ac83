#include <algorithm>

#include "core/base/Text.h"
#include "core/review.h"

namespace ambrel {
namespace {

ReviewPage* find(std::vector<ReviewPage>& pages, const UUID& id) {
  const auto at = std::find_if(pages.begin(), pages.end(), [&](const ReviewPage& page) { return page.id == id; });
  return at == pages.end() ? nullptr : &*at;
}

ReviewPin* find(std::vector<ReviewPage>& pages, const UUID& pageID, const UUID& id) {
  ReviewPage* page = find(pages, pageID);
  if (!page) return nullptr;
  const auto at =
      std::find_if(page->pins.begin(), page->pins.end(), [&](const ReviewPin& pin) { return pin.id == id; });
  return at == page->pins.end() ? nullptr : &*at;
}

// The length of the line break at `text[i]`; 0 where there is none. CR LF counts as two: the piece between is empty.
std::size_t lineBreakAt(std::string_view text, std::size_t i) {
  if (text[i] >= '\n' && text[i] <= '\r') return 1;
  const auto rest = text.substr(i);
  if (rest.starts_with("\xC2\x85")) return 2;                                           // U+0085
  return rest.starts_with("\xE2\x80\xA8") || rest.starts_with("\xE2\x80\xA9") ? 3 : 0;  // U+2028, U+2029
}

std::string onOneLine(std::string_view text) {
  std::string line, piece;
  const auto endPiece = [&] {
    if (piece.empty()) return;
    if (!line.empty()) line += ' ';
    line += piece;
    piece.clear();
  };
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t breakLength = lineBreakAt(text, i);
    if (breakLength == 0) {
      piece += text[i++];
    } else {
      endPiece();
      i += breakLength;
    }
  }
  endPiece();
  return std::string(trimmed(line));
}

bool holds(const NormalizedRect& box, NormalizedPoint point) {
  return point.x >= box.x && point.x <= box.x + box.width && point.y >= box.y && point.y <= box.y + box.height;
}

NormalizedPoint within(const NormalizedRect& box, NormalizedPoint point) {
  return {(point.x - box.x) / box.width, (point.y - box.y) / box.height};
}

}  // namespace

void ScreenReview::addPage(const UUID& id) { pages.push_back({.id = id}); }

void ScreenReview::removePage(const UUID& id) {
  std::erase_if(pages, [&](const ReviewPage& page) { return page.id == id; });
}

std::optional<UUID> ScreenReview::addPin(const UUID& pageID, NormalizedPoint point) {
  ReviewPage* found = find(pages, pageID);
  if (!found) return std::nullopt;
  return found->pins.emplace_back(ReviewPin{.id = UUID::random(), .point = point}).id;
}

void ScreenReview::movePin(const UUID& pageID, const UUID& pinID, NormalizedPoint point) {
  if (ReviewPin* pin = find(pages, pageID, pinID)) pin->point = point;
}

void ScreenReview::setText(const UUID& pageID, const UUID& pinID, std::string text) {
  if (ReviewPin* pin = find(pages, pageID, pinID)) pin->text = std::move(text);
}

void ScreenReview::removePin(const UUID& pageID, const UUID& pinID) {
  if (ReviewPage* found = find(pages, pageID))
    std::erase_if(found->pins, [&](const ReviewPin& pin) { return pin.id == pinID; });
}

void ScreenReview::addHighlight(const UUID& pageID, NormalizedRect box) {
  ReviewPage* found = find(pages, pageID);
  if (found && !(box.width < leastHighlight) && !(box.height < leastHighlight)) found->highlights.push_back(box);
}

void ScreenReview::removeHighlight(const UUID& pageID, std::size_t index) {
  ReviewPage* found = find(pages, pageID);
  if (found && index < found->highlights.size())
    found->highlights.erase(found->highlights.begin() + static_cast<std::ptrdiff_t>(index));
}

std::optional<UUID> ScreenReview::crop(const UUID& pageID, NormalizedRect box) {
  ReviewPage* found = find(pages, pageID);
  if (!found || !(box.width > 0) || !(box.height > 0)) return std::nullopt;
  found->id = UUID::random();
  std::erase_if(found->pins, [&](const ReviewPin& pin) { return !holds(box, pin.point); });
  for (ReviewPin& pin : found->pins) pin.point = within(box, pin.point);
  std::vector<NormalizedRect> kept;
  for (const NormalizedRect& old : found->highlights) {
    const NormalizedPoint from{std::max(old.x, box.x), std::max(old.y, box.y)};
    const NormalizedPoint to{std::min(old.x + old.width, box.x + box.width),
                             std::min(old.y + old.height, box.y + box.height)};
    if (to.x <= from.x || to.y <= from.y) continue;
    const NormalizedPoint a = within(box, from), b = within(box, to);
    kept.push_back({a.x, a.y, b.x - a.x, b.y - a.y});
  }
  found->highlights = std::move(kept);
  return found->id;
}

const ReviewPage* ScreenReview::page(const UUID& id) const {
  const auto at = std::find_if(pages.begin(), pages.end(), [&](const ReviewPage& one) { return one.id == id; });
  return at == pages.end() ? nullptr : &*at;
}

std::vector<ReviewPin> ScreenReview::allPins() const {
  std::vector<ReviewPin> all;
  for (const ReviewPage& one : pages) all.insert(all.end(), one.pins.begin(), one.pins.end());
  return all;
}

std::size_t ScreenReview::noteCount() const {
  std::size_t count = 0;
  for (const ReviewPage& one : pages) count += one.pins.size();
  return count;
}

std::string ScreenReview::markdown(std::string_view title) const {
  std::string text = "# ";
  text += title;
  for (std::size_t p = 0; p < pages.size(); ++p) {
    text += "\n## Capture " + std::to_string(p + 1);
    if (pages[p].pins.empty()) text += "\nNo notes.";
    for (std::size_t i = 0; i < pages[p].pins.size(); ++i) {
      const std::string note = onOneLine(pages[p].pins[i].text);
      text += '\n' + std::to_string(i + 1) + ". " + (note.empty() ? "(no text)" : note);
    }
  }
  return text;
}

void ReviewHistory::apply(ScreenReview next, std::string_view run) {
  if (next == present_) return;
  if (run.empty() || run != run_) past_.push_back(std::move(present_));
  present_ = std::move(next);
  future_.clear();
  run_ = run;
}

void ReviewHistory::undo() {
  if (past_.empty()) return;
  future_.push_back(std::move(present_));
  present_ = std::move(past_.back());
  past_.pop_back();
  endRun();
}

void ReviewHistory::redo() {
  if (future_.empty()) return;
  past_.push_back(std::move(present_));
  present_ = std::move(future_.back());
  future_.pop_back();
  endRun();
}

}  // namespace ambrel
