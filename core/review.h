#pragma once
// A screen review: captures of the screen with numbered pins and highlight boxes on them. The captures' pictures are
// kept beside it, by the identifiers of the pages. A review is never stored.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/UUID.h"

namespace ambrel {

// Fractions of the capture's width and height, from its upper left corner: one document serves every zoom and size.
struct NormalizedPoint {
  double x = 0, y = 0;
  friend bool operator==(const NormalizedPoint&, const NormalizedPoint&) = default;
};

struct NormalizedRect {
  double x = 0, y = 0, width = 0, height = 0;
  friend bool operator==(const NormalizedRect&, const NormalizedRect&) = default;
};

struct ReviewPin {
  UUID id;
  NormalizedPoint point;
  std::string text = {};
  friend bool operator==(const ReviewPin&, const ReviewPin&) = default;
};

struct ReviewPage {
  UUID id;
  std::vector<ReviewPin> pins = {};  // a pin's number is its place here, from 1
  std::vector<NormalizedRect> highlights = {};
  friend bool operator==(const ReviewPage&, const ReviewPage&) = default;
};

// Edits of a page or a pin that is not there change nothing.
struct ScreenReview {
  std::vector<ReviewPage> pages = {};

  void addPage(const UUID& id);
  void removePage(const UUID& id);
  // The new pin's identifier; absent when there is no such page.
  std::optional<UUID> addPin(const UUID& page, NormalizedPoint point);
  void movePin(const UUID& page, const UUID& pin, NormalizedPoint point);
  void setText(const UUID& page, const UUID& pin, std::string text);
  void removePin(const UUID& page, const UUID& pin);
  // A box narrower or lower than `leastHighlight` is a slip of the pointer and is dropped.
  void addHighlight(const UUID& page, NormalizedRect box);
  void removeHighlight(const UUID& page, std::size_t index);
  // The page's capture is cut to `box`: what is marked inside it keeps its place on the picture, what is outside goes.
  // The picture is another one, and so is the page's identifier: the new one; absent when there is no such page or the
  // box has no area.
  std::optional<UUID> crop(const UUID& page, NormalizedRect box);

  const ReviewPage* page(const UUID& id) const;
  std::vector<ReviewPin> allPins() const;
  std::size_t noteCount() const;
  // A heading for each capture, and its notes as a numbered list, each on one line. No newline at the end.
  std::string markdown(std::string_view title) const;

  friend bool operator==(const ScreenReview&, const ScreenReview&) = default;
};

inline constexpr double leastHighlight = 0.005;

// The states of a review that can be undone and redone.
class ReviewHistory {
 public:
  const ScreenReview& present() const { return present_; }
  bool canUndo() const { return !past_.empty(); }
  bool canRedo() const { return !future_.empty(); }

  // Records the state before the edit; nothing when the edit changed nothing. Edits that follow each other under one
  // `run`, such as the letters of one note, are undone together; an empty run stands alone.
  void apply(ScreenReview next, std::string_view run = {});
  // The next edit begins a run of its own.
  void endRun() { run_.clear(); }
  void undo();
  void redo();

 private:
  ScreenReview present_;
  std::vector<ScreenReview> past_, future_;
  std::string run_;
};

struct TitledReview {
  std::string title;
  ScreenReview review;
};

// {"title", "pages": [{"pins": [{"x", "y", "text"}], "highlights": [{"x", "y", "width", "height"}]}]}; what is missing
// is empty. Throws DecodingError.
TitledReview decodedReview(std::string_view json);

}  // namespace ambrel
