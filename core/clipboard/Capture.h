#pragma once
// How the contents of the pasteboard become a clip: which types are asked for in which order, what makes a copy
// private, and what the bytes mean. The bytes themselves are fetched elsewhere, one type at a time.

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/clipboard.h"

namespace ambrel {

// The most that is taken over from another application, in bytes.
struct CaptureLimits {
  std::size_t text = 32u << 20;
  std::size_t picture = 64u << 20;
  std::size_t fileList = 4u << 20;
  // Texts of all unprotected clips together (ClipboardLibrary::evictBeyond).
  static constexpr std::size_t libraryText = 128u << 20;

  // For a type of the pasteboard.
  std::size_t of(std::string_view type) const;
  friend bool operator==(const CaptureLimits&, const CaptureLimits&) = default;
};

// The options of capture, read at each use.
struct CaptureSettings {
  bool isEnabled = true;
  std::int64_t limit = 300;
  std::int64_t maxAgeDays = 0;  // 0: clips never grow too old
  bool forgetsSensitive = true;
  std::vector<std::string> ignoredBundleIDs;

  std::optional<Seconds> maxAge() const;
  std::optional<Seconds> sensitiveAge() const;  // an hour
};

// One type of what is on the pasteboard. Types are MIME types or names of X11 targets.
struct Representation {
  std::string type;
  std::string bytes;
  friend bool operator==(const Representation&, const Representation&) = default;
};

// Whether a marker among the types asks histories to keep out. Its mere presence counts, whatever its value.
bool isPrivate(std::span<const std::string> types);

// An attempt to fetch one type; without bytes when the owner did not deliver, or delivered too much.
struct Fetched {
  std::string type;
  std::optional<std::string> bytes;
  std::optional<std::uint64_t> excess = {};  // the size in bytes, when that is beyond the limit
  bool isLate = false;                       // the owner did not answer in time
};

// A copy that was noticed and could not be taken over.
struct LostCopy {
  enum class Reason {
    tooLarge,
    noAnswer,  // its owner did not hand it over in time, or ended first
  };
  Reason reason = Reason::noAnswer;
  ClipKind kind = ClipKind::text;  // text, image or file; of no meaning without an answer
  std::uint64_t bytes = 0;         // how much there was, of what is too large
  friend bool operator==(const LostCopy&, const LostCopy&) = default;
};

// The type to fetch next, given the attempts so far: files, then pictures, then text, each until one attempt has
// given something to keep; beside a picture its text is fetched too. Absent when there is nothing more to ask for. A
// private copy is never asked.
std::optional<std::string> nextType(std::span<const std::string> types, std::span<const Fetched> fetched,
                                    bool wantsPicture = true);

// What came of the fetching: files, a picture with the text beside it, a text, or why there is nothing to keep.
struct PasteboardContents {
  std::vector<std::string> filePaths;     // absolute; any bytes but NUL
  std::optional<Representation> picture;  // in the format of its type, not yet decoded
  std::optional<std::string> text;        // UTF-8
  std::optional<LostCopy> lost = {};      // only without all of these

  bool isEmpty() const { return filePaths.empty() && !picture && !text; }
  friend bool operator==(const PasteboardContents&, const PasteboardContents&) = default;
};
PasteboardContents contentsOf(std::vector<Fetched> fetched);

struct PictureSize {
  int width = 0, height = 0;  // pixels
  friend bool operator==(const PictureSize&, const PictureSize&) = default;
};
// From the first 24 bytes of a PNG; absent when they are not.
std::optional<PictureSize> pngSize(std::string_view bytes);

// A picture in the image folder.
struct SavedPicture {
  std::string name;
  PictureSize size;
};

// Where a new item comes from.
struct ClipOrigin {
  UUID id;
  Instant now;
  std::optional<std::string> sourceBundleID;
};
// Absent when the text is empty or nothing but white space. The text itself is kept as it is.
std::optional<ClipItem> textItem(std::string text, ClipOrigin origin);
ClipItem imageItem(std::string imageFileName, ClipOrigin origin);
// Absent without paths.
std::optional<ClipItem> fileItem(std::span<const std::string> paths, ClipOrigin origin);

// The paths of a `file` item's text.
std::vector<std::string> filePaths(const ClipItem& item);

// What is written to put an item back: nothing for a picture without its bytes.
std::vector<Representation> representations(const ClipItem& item, std::optional<std::string> imageBytes);
std::vector<Representation> textRepresentations(std::string_view text);

}  // namespace ambrel
