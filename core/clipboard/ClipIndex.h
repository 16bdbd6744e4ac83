#pragma once
// What is worked out once of a clip and then shown and searched many times.

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/clipboard.h"
#include "core/clipboard/Capture.h"
#include "core/clipboard/ClipPreview.h"

namespace ambrel {

struct ClipFacts {
  bool isSensitive = false;  // plain texts alone ever are
  ClipPreview preview;
  std::optional<PictureSize> pictureSize;  // of an image; absent while its file has not been read
  // Absent when the text is ASCII, which is searched as it is.
  std::optional<std::string> foldedText;

  friend bool operator==(const ClipFacts&, const ClipFacts&) = default;
};

// Linear in the text, which may be many megabytes.
ClipFacts factsOf(const ClipItem& item, SearchFolding folding);

// The clip that a copy becomes: its files, else its picture with the text beside it, else its text. Absent when there
// is nothing to keep. `picture`: that of the contents, once it is saved. Linear in the text.
struct CapturedClip {
  ClipItem item;
  ClipFacts facts;
};
std::optional<CapturedClip> captured(PasteboardContents contents, const std::optional<SavedPicture>& picture,
                                     ClipOrigin origin, SearchFolding folding);

// The facts of a library's clips. The content behind an identity never changes, so neither do its facts.
class ClipIndex {
 public:
  explicit ClipIndex(SearchFolding folding = {}) : folding_(folding) {}

  SearchFolding folding() const { return folding_; }
  std::size_t size() const { return facts_.size(); }

  void put(const UUID& id, ClipFacts facts) { facts_.insert_or_assign(id, std::move(facts)); }
  const ClipFacts* find(const UUID& id) const;
  // Works them out if they are not there yet.
  const ClipFacts& of(const ClipItem& item);
  // Forgets the facts of all others.
  void retain(std::span<const ClipItem> items, std::span<const ClipItem> andThese = {});

  // The positions in `items` of what both the filter and the search admit, in order: what
  // ClipboardLibrary::filtered gives, without folding a text again.
  std::vector<std::size_t> matches(std::span<const ClipItem> items, const ClipFilter& filter,
                                   std::string_view query) const;

 private:
  SearchFolding folding_;
  std::unordered_map<UUID, ClipFacts> facts_;
};

}  // namespace ambrel
