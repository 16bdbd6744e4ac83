#include "core/buddy/BuddyNoticeEngine.h"

#include <algorithm>

#include "core/buddy/RulePass.h"
#include "core/buddy/Thresholds.h"

namespace ambrel {
namespace {

bool isExpired(const BuddyNotice& notice, Instant now) { return notice.expiresAt && *notice.expiresAt <= now; }

// What a notice has to get through once it is due.
class Gate {
 public:
  Gate(const BuddySignals& signals, const BuddyPolicy& policy, bool isQuiet, std::vector<BuddyNotice>& held)
      : policy_(policy), isQuiet_(isQuiet), isFocusRunning_(signals.isFocusRunning), held_(held) {}

  void pass(BuddyNotice notice, std::vector<BuddyNotice>& result) const {
    if (!policy_.allows(notice.rule)) return;
    if (priority(notice.rule) == BuddyPriority::urgent) return result.push_back(std::move(notice));
    if (isQuiet_) return;
    if (!isFocusRunning_) return result.push_back(std::move(notice));
    const auto isSame = [&](const BuddyNotice& other) { return other.id == notice.id; };
    if (std::none_of(held_.begin(), held_.end(), isSame)) held_.push_back(std::move(notice));
  }

 private:
  const BuddyPolicy& policy_;
  bool isQuiet_;
  bool isFocusRunning_;
  std::vector<BuddyNotice>& held_;
};

}  // namespace

std::vector<BuddyNotice> BuddyNoticeEngine::candidates(const BuddySignals& signals, bool onlyUnfocused, Instant now,
                                                       const Calendar& calendar) {
  return RulePass(*this, signals, onlyUnfocused, now, calendar).run();
}

std::vector<BuddyNotice> BuddyNoticeEngine::evaluate(const BuddySignals& signals, const BuddyPolicy& policy,
                                                     Instant now, const Calendar& calendar) {
  ended = active;
  ended.insert(waitingInView.begin(), waitingInView.end());
  std::vector<BuddyNotice> raised = candidates(signals, policy.onlyUnfocusedAgents, now, calendar);
  const bool isQuiet = policy.quietHours && policy.quietHours->contains(now, calendar);
  const Gate gate(signals, policy, isQuiet, held);
  std::vector<BuddyNotice> result;

  std::unordered_set<std::string> raisedLasting;
  for (BuddyNotice& notice : raised) {
    if (isLasting(notice.rule)) raisedLasting.insert(notice.id);
    if (active.count(notice.id) != 0) continue;
    const auto [fired, isFirst] = lastFired.try_emplace(notice.id, now);
    if (!isFirst && secondsBetween(fired->second, now) < cooldown(notice.rule)) continue;
    // Before the policy is asked: what it drops uses up its cooldown too.
    fired->second = now;
    gate.pass(std::move(notice), result);
  }
  active = std::move(raisedLasting);
  std::erase_if(ended, [this](const std::string& id) { return active.count(id) != 0 || waitingInView.count(id) != 0; });
  const auto isStillTrue = [&](const BuddyNotice& notice) {
    return (!isLasting(notice.rule) || active.count(notice.id) != 0) && !isExpired(notice, now);
  };

  for (auto entry = snoozed.begin(); entry != snoozed.end();) {
    if (entry->second.until > now) {
      ++entry;
      continue;
    }
    BuddyNotice notice = std::move(entry->second.notice);
    entry = snoozed.erase(entry);
    if (isStillTrue(notice)) gate.pass(std::move(notice), result);
  }

  if (!signals.isFocusRunning) {
    for (BuddyNotice& notice : held)
      if (isStillTrue(notice)) result.push_back(std::move(notice));
    held.clear();
  }

  std::erase_if(lastFired,
                [&](const auto& entry) { return secondsBetween(entry.second, now) >= BuddyThresholds::firedKept; });
  std::stable_sort(result.begin(), result.end(),
                   [](const BuddyNotice& a, const BuddyNotice& b) { return priority(a.rule) > priority(b.rule); });
  return result;
}

void BuddyNoticeEngine::snooze(const BuddyNotice& notice, std::int64_t minutes, Instant now) {
  snoozed.insert_or_assign(notice.id, Snoozed{notice, now + std::chrono::minutes(minutes)});
}

void BuddyNoticeEngine::clockMoved(Seconds by) {
  const auto before = workingSince;
  for (auto& [id, since] : workingSince) since = advanced(since, by);
  if (cpuHighSince) cpuHighSince = advanced(*cpuHighSince, by);
  for (auto& [id, fired] : lastFired) fired = advanced(fired, by);
  for (auto& [id, entry] : snoozed) entry.until = advanced(entry.until, by);

  // The ids of these name the start of the run, which has moved.
  for (const auto& [session, since] : before) {
    const std::string old = stillWorkingID(session, since), moved = stillWorkingID(session, workingSince.at(session));
    std::vector<std::string> ids;
    for (const std::string& id : active)
      if (id.starts_with(old)) ids.push_back(id);
    for (const std::string& id : ids) {
      active.erase(id);
      active.insert(moved + id.substr(old.size()));
    }
    for (BuddyNotice& notice : held)
      if (notice.id.starts_with(old)) notice.id.replace(0, old.size(), moved);
  }
}

}  // namespace ambrel
