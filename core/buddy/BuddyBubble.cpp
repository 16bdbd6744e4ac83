#include "core/buddy/BuddyBubble.h"

#include <algorithm>

namespace ambrel {

void BuddyBubble::offer(const BuddyNotice& notice, Instant now) {
  // It was out of sight for a while, as an agent in view is, and is raised again while its first notice still holds.
  const auto isSame = [&](const BuddyNotice& other) { return other.id == notice.id; };
  if (queue.current && isSame(*queue.current)) {
    queue.current->date = notice.date;
    hasEnded_ = false;
    if (isShown) shown = queue.current;
    return;
  }
  const auto waiting = std::find_if(queue.pending.begin(), queue.pending.end(), isSame);
  if (waiting != queue.pending.end()) {
    waiting->date = notice.date;
    return;
  }
  const auto before = queue.current;
  if (queue.offer(notice)) {
    if (!isShown) return;
    // The bubble says more now, and has its whole time again.
    shown = queue.current;
    closeIn(length, now);
  } else if (queue.current != before) {
    currentWasShown_ = false;
  }
}

void BuddyBubble::present(Instant now) {
  while (queue.current && !currentWasShown_ && queue.current->expiresAt && *queue.current->expiresAt <= now)
    queue.advance(now);
  if (!queue.current) return hide();
  if (currentWasShown_) return;
  if (isInboxOpen_ || isInTheWay_) return hide();
  currentWasShown_ = true;
  hasEnded_ = false;
  isShown = true;
  ++showings;
  shown = queue.current;
  resetChoice();
  closeIn(length, now);
}

void BuddyBubble::tick(Instant now) {
  if (closesAt && *closesAt <= now) close(now);
}

void BuddyBubble::close(Instant now) {
  if (isShown) advance(now);
}

void BuddyBubble::advance(Instant now) {
  queue.advance(now);
  currentWasShown_ = false;
  present(now);
}

void BuddyBubble::hide() {
  closesAt.reset();
  isShown = false;
  isPointed_ = false;
  resetChoice();
}

void BuddyBubble::withdraw(const std::unordered_set<std::string>& ended, Instant now) {
  std::erase_if(queue.pending, [&](const BuddyNotice& notice) { return ended.count(notice.id) != 0; });
  queue.prune(now);
  if (queue.current && ended.count(queue.current->id) != 0) {
    if (isHeld())
      hasEnded_ = true;
    else
      advance(now);
  }
  keepChoice();
}

void BuddyBubble::apply(const BuddyPolicy& policy, Instant now) {
  std::erase_if(queue.pending, [&](const BuddyNotice& notice) { return !policy.allows(notice.rule); });
  if (queue.current && !policy.allows(queue.current->rule)) advance(now);
  keepChoice();
}

void BuddyBubble::setInTheWay(bool isInTheWay, Instant now) {
  isInTheWay_ = isInTheWay;
  if (!isInTheWay) return present(now);
  if (!isShown) return;
  // It comes again when the way is free.
  currentWasShown_ = false;
  hide();
}

void BuddyBubble::setInboxOpen(bool isOpen, Instant now) {
  isInboxOpen_ = isOpen;
  queue = {};
  currentWasShown_ = false;
  present(now);
}

void BuddyBubble::closeIn(Seconds span, Instant now) {
  closesAt.reset();
  if (isHeld() || !shown || (priority(shown->rule) == BuddyPriority::urgent && !hasEnded_)) return;
  closesAt = advanced(now, span);
}

void BuddyBubble::setPointed(bool isPointed, Instant now) {
  if (isPointed == isPointed_) return;
  isPointed_ = isPointed;
  if (isShown) closeIn(grace, now);
}

void BuddyBubble::setReached(bool isReached, Instant now) {
  if (isReached == isReached_) return;
  isReached_ = isReached;
  resetChoice();
  if (isShown) closeIn(grace, now);
}

void BuddyBubble::resetChoice() { choice = isReached_ && isShown ? std::optional<std::size_t>(0) : std::nullopt; }

// With nothing left behind it there is no "more" to choose.
void BuddyBubble::keepChoice() {
  if (choice) choice = std::min(*choice, std::max<std::size_t>(choices().size(), 1) - 1);
}

std::vector<BuddyBubble::Choice> BuddyBubble::choices() const {
  std::vector<Choice> list;
  if (!isShown || !shown) return list;
  for (std::size_t i = 0; i < shown->actions.size(); ++i) list.push_back({Choice::Kind::action, i});
  if (!queue.pending.empty()) list.push_back({Choice::Kind::more});
  list.push_back({Choice::Kind::close});
  return list;
}

void BuddyBubble::moveChoice(int by) {
  const auto count = static_cast<int>(choices().size());
  if (!choice || count == 0) return;
  choice = static_cast<std::size_t>((static_cast<int>(*choice) + by % count + count) % count);
}

void BuddyBubble::clockMoved(Seconds by) {
  queue.clockMoved(by);
  if (shown) shown->date = advanced(shown->date, by);
  if (closesAt) closesAt = advanced(*closesAt, by);
}

}  // namespace ambrel
