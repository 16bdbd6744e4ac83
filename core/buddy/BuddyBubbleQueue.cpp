#include "core/buddy/BuddyBubbleQueue.h"

#include <algorithm>
#include <iterator>

#include "core/buddy/Thresholds.h"

namespace ambrel {
namespace {

using namespace BuddyThresholds;

bool speakTogether(const BuddyNotice& a, const BuddyNotice& b) {
  return a.sessionID && a.sessionID == b.sessionID && std::chrono::abs(secondsBetween(a.date, b.date)) <= mergeSpan;
}

bool isMoreUrgent(const BuddyNotice& a, const BuddyNotice& b) { return priority(a.rule) > priority(b.rule); }

}  // namespace

bool BuddyBubbleQueue::offer(const BuddyNotice& notice) {
  if (current && speakTogether(*current, notice)) {
    current = merged(*current, notice);
    return true;
  }
  const auto waiting = std::find_if(pending.begin(), pending.end(),
                                    [&](const BuddyNotice& other) { return speakTogether(other, notice); });
  if (waiting != pending.end()) {
    *waiting = merged(*waiting, notice);
    return false;
  }
  if (!current) {
    current = notice;
  } else if (isMoreUrgent(notice, *current)) {
    pending.push_back(std::move(*current));
    current = notice;
  } else {
    pending.push_back(notice);
  }
  std::stable_sort(pending.begin(), pending.end(), isMoreUrgent);
  if (std::ssize(pending) > pendingCapacity) pending.erase(pending.begin() + pendingCapacity, pending.end());
  return false;
}

void BuddyBubbleQueue::prune(Instant now) {
  std::erase_if(pending, [&](const BuddyNotice& notice) {
    return secondsBetween(notice.date, now) > pendingLifetime || (notice.expiresAt && *notice.expiresAt <= now);
  });
}

void BuddyBubbleQueue::advance(Instant now) {
  prune(now);
  current.reset();
  if (pending.empty()) return;
  current = std::move(pending.front());
  pending.erase(pending.begin());
}

BuddyNotice BuddyBubbleQueue::merged(const BuddyNotice& a, const BuddyNotice& b) {
  const bool secondLeads = isMoreUrgent(b, a);
  BuddyNotice lead = secondLeads ? b : a;
  lead.detail += " Also: " + (secondLeads ? a : b).title + ".";
  lead.date = std::max(a.date, b.date);
  return lead;
}

void BuddyBubbleQueue::clockMoved(Seconds by) {
  if (current) current->date = advanced(current->date, by);
  for (BuddyNotice& notice : pending) notice.date = advanced(notice.date, by);
}

}  // namespace ambrel
