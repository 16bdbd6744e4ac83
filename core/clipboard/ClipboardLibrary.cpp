#include <algorithm>
#include <array>
#include <utility>

#include "core/base/Overloaded.h"
#include "core/clipboard.h"

namespace ambrel {
namespace {

// What tells two clips of one kind apart.
std::string_view content(const ClipItem& item) {
  if (item.imageFileName) return *item.imageFileName;
  if (item.text) return *item.text;
  return {};
}

// Removes the items whose flag is set and returns them from the last to the first.
std::vector<ClipItem> takeMarked(std::vector<ClipItem>& items, const std::vector<bool>& isTaken) {
  std::vector<ClipItem> taken;
  std::size_t kept = 0;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (isTaken[i])
      taken.push_back(std::move(items[i]));
    else if (kept++ != i)
      items[kept - 1] = std::move(items[i]);
  }
  items.resize(kept);
  std::ranges::reverse(taken);
  return taken;
}

struct NamedCleanup {
  std::string_view key, title;
  ClipCleanup cleanup;
};

const auto& namedCleanups() {
  const auto olderThanDays = [](int days) { return ClipCleanup{ClipCleanup::OlderThan{Seconds(days * 86400.0)}}; };
  const auto all = [](ClipKind kind) { return ClipCleanup{ClipCleanup::Matching{{ClipFilter::Kind{kind}}}}; };
  static const std::array table{
      NamedCleanup{"older:1", "Older than a day", olderThanDays(1)},
      NamedCleanup{"older:7", "Older than 7 days", olderThanDays(7)},
      NamedCleanup{"older:30", "Older than 30 days", olderThanDays(30)},
      NamedCleanup{"kind:text", "Texts", all(ClipKind::text)},
      NamedCleanup{"kind:link", "Links", all(ClipKind::link)},
      NamedCleanup{"kind:color", "Colors", all(ClipKind::color)},
      NamedCleanup{"kind:image", "Images", all(ClipKind::image)},
      NamedCleanup{"kind:file", "Files", all(ClipKind::file)},
      NamedCleanup{"all", "Everything", {ClipCleanup::All{}}},
  };
  return table;
}

std::size_t textSize(const ClipItem& item) { return item.text ? item.text->size() : 0; }

}  // namespace

bool ClipItem::hasSameContent(const ClipItem& other) const {
  return kind == other.kind && content(*this) == content(other);
}

bool ClipFilter::admits(const ClipItem& item) const {
  return std::visit(Overloaded{
                        [&](const Kind& filter) { return item.kind == filter.kind; },
                        [&](const Collection& filter) { return item.collectionIDs.contains(filter.id); },
                        [](const All&) { return true; },
                        [&](const Pinned&) { return item.isPinned; },
                    },
                    value);
}

std::string ClipFilter::text() const {
  return std::visit(Overloaded{
                        [](const Kind& filter) { return "kind:" + std::string(nameOf(filter.kind)); },
                        [](const Collection& filter) { return "collection:" + filter.id.text(); },
                        [](const All&) { return std::string("all"); },
                        [](const Pinned&) { return std::string("pinned"); },
                    },
                    value);
}

std::optional<ClipFilter> ClipFilter::parse(std::string_view text) {
  if (text == "all") return ClipFilter{All{}};
  if (text == "pinned") return ClipFilter{Pinned{}};
  const std::string_view payload = text.substr(text.find(':') + 1);
  if (text.starts_with("kind:")) {
    if (const auto kind = fromName<ClipKind>(payload)) return ClipFilter{Kind{*kind}};
  } else if (text.starts_with("collection:")) {
    if (const auto id = UUID::parse(payload)) return ClipFilter{Collection{*id}};
  }
  return std::nullopt;
}

const ClipItem* ClipboardLibrary::itemLike(const ClipItem& item) const {
  const auto same = std::ranges::find_if(items, [&](const ClipItem& other) { return other.hasSameContent(item); });
  return same == items.end() ? nullptr : &*same;
}

std::vector<ClipItem> ClipboardLibrary::add(ClipItem item, std::int64_t limit) {
  const auto same = std::ranges::find_if(items, [&](const ClipItem& other) { return other.hasSameContent(item); });
  if (same != items.end()) {
    item.id = same->id;
    item.isPinned = same->isPinned;
    item.collectionIDs = std::move(same->collectionIDs);
    std::move_backward(items.begin(), same, same + 1);
    items.front() = std::move(item);
  } else {
    items.insert(items.begin(), std::move(item));
  }
  auto excess = std::ranges::count_if(items, [](const ClipItem& other) { return !other.isProtected(); }) - limit;
  if (excess <= 0) return {};
  std::vector<bool> isEvicted(items.size());
  for (std::size_t i = items.size(); i-- > 0 && excess > 0;)
    if (!items[i].isProtected()) {
      isEvicted[i] = true;
      --excess;
    }
  return takeMarked(items, isEvicted);
}

std::vector<ClipItem> ClipboardLibrary::evictBeyond(std::size_t bytes) {
  constexpr std::size_t large = 1 << 20;
  std::size_t total = 0;
  for (const ClipItem& item : items)
    if (!item.isProtected()) total += textSize(item);
  if (total <= bytes) return {};
  std::vector<bool> isEvicted(items.size());
  for (const std::size_t least : {large + 1, std::size_t{1}})
    for (std::size_t i = items.size(); i-- > 1 && total > bytes;)
      if (!items[i].isProtected() && !isEvicted[i] && textSize(items[i]) >= least) {
        isEvicted[i] = true;
        total -= textSize(items[i]);
      }
  return takeMarked(items, isEvicted);
}

std::vector<ClipCleanup::Offer> ClipCleanup::offers(std::span<const ClipItem> items, Instant now) {
  std::vector<Offer> offers;
  for (const NamedCleanup& one : namedCleanups())
    if (const std::size_t count = targets(items, one.cleanup, now).size())
      offers.push_back({.key = one.key, .title = one.title, .count = count});
  return offers;
}

std::optional<ClipCleanup> ClipCleanup::named(std::string_view key) {
  for (const NamedCleanup& one : namedCleanups())
    if (one.key == key) return one.cleanup;
  return std::nullopt;
}

std::vector<ClipItem> ClipCleanup::targets(std::span<const ClipItem> items, const ClipCleanup& cleanup, Instant now) {
  const auto isTarget = [&](const ClipItem& item) {
    return std::visit(Overloaded{
                          [&](const OlderThan& wanted) { return secondsBetween(item.createdAt, now) > wanted.age; },
                          [&](const Matching& wanted) { return wanted.filter.admits(item); },
                          [](const All&) { return true; },
                      },
                      cleanup.value);
  };
  std::vector<ClipItem> found;
  for (const ClipItem& item : items)
    if (!item.isProtected() && isTarget(item)) found.push_back(item);
  return found;
}

std::vector<ClipItem> ClipCleanup::expired(std::span<const ClipItem> items, Instant now, std::optional<Seconds> maxAge,
                                           std::optional<Seconds> sensitiveAge,
                                           const std::function<bool(const ClipItem&)>& isSensitive) {
  std::vector<ClipItem> found;
  for (const ClipItem& item : items) {
    if (item.isProtected()) continue;
    const Seconds age = secondsBetween(item.createdAt, now);
    if ((maxAge && age > *maxAge) ||
        (sensitiveAge && age > *sensitiveAge && item.kind == ClipKind::text && item.text && isSensitive(item)))
      found.push_back(item);
  }
  return found;
}

std::vector<ClipItem> ClipCleanup::expired(std::span<const ClipItem> items, Instant now, std::optional<Seconds> maxAge,
                                           std::optional<Seconds> sensitiveAge) {
  return expired(items, now, maxAge, sensitiveAge,
                 [](const ClipItem& item) { return SensitiveText::isSensitive(*item.text); });
}

}  // namespace ambrel
