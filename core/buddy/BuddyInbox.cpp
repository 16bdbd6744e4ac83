#include "core/buddy/BuddyInbox.h"

#include <algorithm>

#include "core/buddy/BuddyText.h"

namespace ambrel {

void BuddyInbox::add(const std::vector<BuddyNotice>& notices, Instant now) {
  const std::size_t skipped = notices.size() > capacity ? notices.size() - capacity : 0;
  for (std::size_t i = skipped; i < notices.size(); ++i) {
    const BuddyNotice& notice = notices[i];
    const auto listed = std::ranges::find_if(
        recent, [&](const BuddyNotice& other) { return other.date == notice.date && other.id == notice.id; });
    if (listed != recent.end()) {
      if (static_cast<std::size_t>(listed - recent.begin()) < newCount) --newCount;
      recent.erase(listed);
    }
    recent.insert(recent.begin(), notice)->date = now;
    ++newCount;
  }
  if (recent.size() > capacity) recent.erase(recent.begin() + capacity, recent.end());
  newCount = std::min(newCount, recent.size());
}

std::string inboxKey(const BuddyNotice& notice) { return notice.id + "@" + idTime(notice.date); }

}  // namespace ambrel
