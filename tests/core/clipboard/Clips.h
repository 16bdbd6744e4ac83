#pragma once
// Clips for tests: identities and times by small numbers.

#include <string>
#include <utility>
#include <vector>

#include "core/clipboard.h"

namespace ambrel::clips {

inline UUID id(int number) {
  UUID id;
  id.bytes[15] = static_cast<std::uint8_t>(number);
  id.bytes[14] = static_cast<std::uint8_t>(number >> 8);
  return id;
}

// Seconds after some hour.
inline Instant at(double seconds) { return instantFromUnixSeconds(1'800'000'000 + seconds); }

inline ClipItem text(int number, std::string content, double seconds = 0) {
  ClipItem item;
  item.id = id(number);
  item.text = std::move(content);
  item.createdAt = at(seconds);
  return item;
}

inline ClipItem image(int number, std::string name, double seconds = 0) {
  ClipItem item;
  item.id = id(number);
  item.kind = ClipKind::image;
  item.imageFileName = std::move(name);
  item.createdAt = at(seconds);
  return item;
}

inline ClipItem pinned(ClipItem item) {
  item.isPinned = true;
  return item;
}

inline ClipItem collected(ClipItem item, int collection) {
  item.collectionIDs.insert(id(collection));
  return item;
}

inline std::vector<int> numbers(const std::vector<ClipItem>& items) {
  std::vector<int> list;
  for (const ClipItem& item : items) list.push_back(item.id.bytes[14] << 8 | item.id.bytes[15]);
  return list;
}

}  // namespace ambrel::clips
