#pragma once
// Notices and times of the tests of what Buddy says.

#include <gmock/gmock.h>

#include "core/buddy.h"

namespace ambrel {

inline const Instant start = instantFromUnixSeconds(1'795'251'600);  // 2026-11-21T09:00:00Z
inline Instant after(double seconds) { return advanced(start, Seconds(seconds)); }

inline BuddyNotice notice(const std::string& id, BuddyRule rule, double seconds = 0,
                          std::optional<std::string> session = {}, std::optional<Instant> expiresAt = {}) {
  return BuddyNotice(id, rule, "Title " + id, "Detail " + id + ".", after(seconds), {BuddyActions::Snooze{15}},
                     std::move(session), expiresAt);
}

inline std::vector<std::string> ids(const std::vector<BuddyNotice>& notices) {
  std::vector<std::string> ids;
  for (const BuddyNotice& notice : notices) ids.push_back(notice.id);
  return ids;
}

}  // namespace ambrel
