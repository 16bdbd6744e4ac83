#include "core/buddy/BuddySpeech.h"

namespace ambrel {
namespace {

// What keeps him awake although nothing is said.
bool isBusy(const BuddySignals& signals) {
  return signals.isFocusRunning || std::ranges::any_of(signals.agents, [](const AgentSession& session) {
           return session.status == AgentStatus::needsInput || session.status == AgentStatus::working;
         });
}

}  // namespace

BuddySpeech BuddySpeech::from(Instant now) {
  BuddySpeech speech{.nextEvaluation = advanced(now, interval), .lastStir = now};
  speech.watch.lastLookAt = now;
  return speech;
}

void BuddySpeech::evaluate(BuddySignals signals, const std::optional<std::set<AgentKind>>& front,
                           const BuddyPolicy& policy, Instant now, const Calendar& calendar) {
  nextEvaluation = advanced(now, interval);
  watch.update(signals.agents, now);
  if (front) lookAtFront(*front, policy, now);
  signals.focusedAgents = watch.focused(now);
  signals.phaseEnded = std::exchange(phaseEnded, std::nullopt);

  std::vector<BuddyNotice> notices = engine.evaluate(signals, policy, now, calendar);
  // What waited for the break is asked again: the user may have switched it off meanwhile.
  std::erase_if(notices, [&](const BuddyNotice& notice) { return !policy.allows(notice.rule); });
  inbox.add(notices, now);
  // That one still works is for the inbox alone.
  std::erase_if(notices, [](const BuddyNotice& notice) { return notice.rule == BuddyRule::agentStillWorking; });
  // What waited is said now, and has its whole time to be seen.
  for (BuddyNotice& notice : notices) notice.date = now;
  bubble.withdraw(engine.ended, now);
  offer(notices, now);
  if (isBusy(signals) || bubble.isShown || bubble.isInboxOpen()) lastStir = now;
}

void BuddySpeech::post(const BuddyNotice& notice, const BuddyPolicy& policy, Instant now) {
  inbox.add({notice}, now);
  if (policy.allows(notice.rule)) offer({notice}, now);
}

void BuddySpeech::lookAtFront(const std::set<AgentKind>& front, const BuddyPolicy& policy, Instant now) {
  if (!watch.setFront(front, now)) return;
  auto missed = watch.digest(now);
  if (missed.empty()) return;
  digest = std::move(missed);
  digestSince = std::exchange(watch.lastLookAt, now);
  const BuddyNotice notice = awayNotice(digest, now);
  if (policy.allows(notice.rule)) offer({notice}, now);
}

void BuddySpeech::offer(const std::vector<BuddyNotice>& notices, Instant now) {
  if (!notices.empty()) {
    lastStir = now;
    trigger = ambrel::trigger(notices.front().rule);
  }
  for (const BuddyNotice& notice : notices) bubble.offer(notice, now);
  bubble.present(now);
}

void BuddySpeech::openInbox(Instant now) {
  lastStir = now;
  bubble.setInboxOpen(true, now);
}

void BuddySpeech::closeInbox(Instant now) {
  bubble.setInboxOpen(false, now);
  inbox.markRead();
}

void BuddySpeech::clear() {
  inbox = {};
  digest.clear();
  digestSince.reset();
}

void BuddySpeech::clockMoved(Seconds by) {
  engine.clockMoved(by);
  watch.clockMoved(by);
  bubble.clockMoved(by);
  nextEvaluation = advanced(nextEvaluation, by);
  lastStir = advanced(lastStir, by);
}

}  // namespace ambrel
