#pragma once
// The clipboard history: what a clip is, what kind of thing a copied text is, which texts are secrets, and which
// clips a limit, an expiry sweep or a cleanup takes away. Capture and storage are in core/clipboard/.

#include <cstdint>
#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/base/EnumText.h"
#include "core/base/Instant.h"
#include "core/base/SearchFolding.h"
#include "core/base/UUID.h"

namespace ambrel {

enum class ClipKind {
  text,   // plain text
  link,   // one http or https URL with a host
  color,  // a hexadecimal or functional colour notation
  image,  // a picture kept as a file
  file,   // one or more paths
};

// What a copied text is: `text`, `link` or `color`. One pass over the text.
ClipKind classify(std::string_view text);

struct ClipItem {
  UUID id;  // survives a second copy of the same content
  ClipKind kind = ClipKind::text;
  // As copied, UTF-8. For `file`, one path a line; a path that a line cannot hold (a newline, bytes that are no
  // UTF-8) is given as its file URI. For `image`, the text that was offered beside the picture, if any.
  std::optional<std::string> text;
  std::optional<std::string> imageFileName;   // for `image`: the name in the image folder
  std::optional<std::string> sourceBundleID;  // the application in front when the copy happened
  Instant createdAt;                          // the latest copy of this content
  bool isPinned = false;
  std::set<UUID> collectionIDs;

  // No limit, sweep or cleanup ever takes a protected item.
  bool isProtected() const { return isPinned || !collectionIDs.empty(); }
  // Whether both are the same clip, whatever their identity, time and source.
  bool hasSameContent(const ClipItem& other) const;

  friend bool operator==(const ClipItem&, const ClipItem&) = default;
};

struct ClipCollection {
  UUID id;
  std::string name;

  friend bool operator==(const ClipCollection&, const ClipCollection&) = default;
};

// A choice of what the shelf shows; never stored.
struct ClipFilter {
  struct Kind {
    ClipKind kind = ClipKind::text;
    friend auto operator<=>(const Kind&, const Kind&) = default;
  };
  struct Collection {
    UUID id;
    friend auto operator<=>(const Collection&, const Collection&) = default;
  };
  struct All {
    friend auto operator<=>(const All&, const All&) = default;
  };
  struct Pinned {
    friend auto operator<=>(const Pinned&, const Pinned&) = default;
  };
  std::variant<Kind, Collection, All, Pinned> value = All{};

  bool admits(const ClipItem& item) const;

  // "all", "pinned", "kind:link", "collection:ID"; absent for any other text.
  std::string text() const;
  static std::optional<ClipFilter> parse(std::string_view text);

  friend auto operator<=>(const ClipFilter&, const ClipFilter&) = default;
};

// A search as typed, ready to be held against many clips: blanks at both ends do not count, newlines do.
class ClipQuery {
 public:
  ClipQuery(std::string_view typed, SearchFolding folding);

  bool isEmpty() const { return folded_.empty(); }
  // An empty query matches everything; any other only what has such a text.
  bool matches(const ClipItem& item) const;
  // The same for a text that was folded beforehand, with the same folding.
  bool matchesFolded(std::string_view foldedText) const;
  // The same for a text that SearchFolding::leavesSearchable.
  bool matchesASCII(std::string_view text) const;

 private:
  SearchFolding folding_;
  std::string folded_;
};

struct ClipboardLibrary {
  std::vector<ClipItem> items;              // newest first; nothing re-sorts them
  std::vector<ClipCollection> collections;  // in order of creation

  // Puts the item first. A clip of the same content gives it its identity, pin and collections and goes. Beyond
  // `limit` unprotected items the oldest of them are evicted; they are returned, oldest first.
  std::vector<ClipItem> add(ClipItem item, std::int64_t limit);

  // The clip of the same content; null without one.
  const ClipItem* itemLike(const ClipItem& item) const;

  // What takes the texts of the unprotected items above `bytes`, oldest first: those longer than a mebibyte, then
  // any. The first item stays. The items are removed and returned.
  std::vector<ClipItem> evictBeyond(std::size_t bytes);

  // The items that both the filter and the search admit, in the order given.
  static std::vector<ClipItem> filtered(std::span<const ClipItem> items, const ClipFilter& filter,
                                        std::string_view query, SearchFolding folding);

  friend bool operator==(const ClipboardLibrary&, const ClipboardLibrary&) = default;
};

// Texts that a history must not keep for long.
struct SensitiveText {
  SensitiveText() = delete;
  // One-time codes, keys and tokens of well-known services, private keys, card numbers. Linear in the text.
  static bool isSensitive(std::string_view text);
  // 13 to 19 digits, with blanks and hyphens between them, whose check digit is right.
  static bool isCardNumber(std::string_view text);
};

// A request to clean the history up. The functions name what would go and remove nothing.
struct ClipCleanup {
  struct OlderThan {
    Seconds age{};
    friend auto operator<=>(const OlderThan&, const OlderThan&) = default;
  };
  struct Matching {
    ClipFilter filter;
    friend auto operator<=>(const Matching&, const Matching&) = default;
  };
  struct All {
    friend auto operator<=>(const All&, const All&) = default;
  };
  std::variant<OlderThan, Matching, All> value = All{};

  static std::vector<ClipItem> targets(std::span<const ClipItem> items, const ClipCleanup& cleanup, Instant now);

  // The cleanups that the shelf offers, each by a key ("older:7"), and of them those that would take something.
  struct Offer {
    std::string_view key, title;
    std::size_t count = 0;
  };
  static std::vector<Offer> offers(std::span<const ClipItem> items, Instant now);
  static std::optional<ClipCleanup> named(std::string_view key);

  // What is older than `maxAge`, and plain texts with a secret that are older than `sensitiveAge`; absent ages
  // take nothing. `isSensitive` is SensitiveText::isSensitive of the item's text, so that a caller may
  // remember its answers.
  static std::vector<ClipItem> expired(std::span<const ClipItem> items, Instant now, std::optional<Seconds> maxAge,
                                       std::optional<Seconds> sensitiveAge,
                                       const std::function<bool(const ClipItem&)>& isSensitive);
  static std::vector<ClipItem> expired(std::span<const ClipItem> items, Instant now, std::optional<Seconds> maxAge,
                                       std::optional<Seconds> sensitiveAge);

  friend auto operator<=>(const ClipCleanup&, const ClipCleanup&) = default;
};

// Reading throws DecodingError or a JSON exception when a required key is missing or of another type.
void to_json(nlohmann::json& json, const ClipItem& item);
void from_json(const nlohmann::json& json, ClipItem& item);
void to_json(nlohmann::json& json, const ClipCollection& collection);
void from_json(const nlohmann::json& json, ClipCollection& collection);
void to_json(nlohmann::json& json, const ClipboardLibrary& library);
void from_json(const nlohmann::json& json, ClipboardLibrary& library);

}  // namespace ambrel

template <>
struct std::hash<ambrel::UUID> {
  std::size_t operator()(const ambrel::UUID& id) const noexcept {
    // Identifiers are random already; any eight of their bytes will do.
    std::size_t value = 0;
    for (std::size_t i = 0; i < sizeof value; ++i) value = value << 8 | id.bytes[i + 8];
    return value;
  }
};

template <>
struct std::hash<ambrel::ClipFilter> {
  std::size_t operator()(const ambrel::ClipFilter& filter) const noexcept {
    using ambrel::ClipFilter;
    std::size_t payload = 0;
    if (const auto* kind = std::get_if<ClipFilter::Kind>(&filter.value))
      payload = static_cast<std::size_t>(kind->kind);
    else if (const auto* collection = std::get_if<ClipFilter::Collection>(&filter.value))
      payload = std::hash<ambrel::UUID>()(collection->id);
    return payload * 4 + filter.value.index();
  }
};
