#include "app/buddy/BuddyNoticeCenter.h"

#include <QPointer>
#include <algorithm>

#include "app/agents/AgentsModel.h"
#include "app/base/QmlObjects.h"
#include "app/base/StoredValue.h"
#include "app/model/AppSettings.h"
#include "core/base/LocalText.h"
#include "core/base/Overloaded.h"
#include "core/base/UserDefaults.h"
#include "platform/Workspace.h"

namespace ambrel {
namespace {

constexpr const char* summaryDayKey = "buddySummaryDay";

std::optional<AgentKind> agentAmong(const std::vector<std::string>& identifiers) {
  for (const std::string& identifier : identifiers)
    for (const AgentKind kind : allCases<AgentKind>())
      if (bundleIdentifier(kind) == identifier) return kind;
  return std::nullopt;
}

bool isUrgent(const BuddyNotice& notice) { return priority(notice.rule) == BuddyPriority::urgent; }

}  // namespace

BuddyNoticeCenter::BuddyNoticeCenter(Seams seams, QObject* parent)
    : TimedModel(parent), seams_(std::move(seams)), buddy_(seams_.later), inboxModel_(seams_.calendar) {
  keep({&buddy_, &inboxModel_});
  const Instant now = seams_.now();
  engine_.lastSummaryDay = seams_.defaults.string(summaryDayKey);
  watch_.lastLookAt = now;
  lastStir_ = now;
  next_ = advanced(now, interval);
  updateQuietText(now);
  seams_.workspace.setFrontmostHandler([this] { frontChanged(); });
  for (const auto changed : {&AppSettings::quietHoursOnChanged, &AppSettings::quietStartHourChanged,
                             &AppSettings::quietEndHourChanged, &AppSettings::buddyLevelChanged})
    connect(&seams_.settings, changed, this, [this] { updateQuietText(seams_.now()); });
}

BuddyPolicy BuddyNoticeCenter::policy() const {
  const AppSettings& settings = seams_.settings;
  BuddyPolicy policy{.level = settings.buddyLevel(),
                     .categories = settings.buddyCategories(),
                     .quietHours = {},
                     .onlyUnfocusedAgents = settings.buddyOnlyUnfocusedAgents()};
  if (settings.quietHoursOn())
    policy.quietHours = QuietHours{.startHour = static_cast<int>(settings.quietStartHour()),
                                   .endHour = static_cast<int>(settings.quietEndHour())};
  return policy;
}

BuddySignals BuddyNoticeCenter::gathered(Instant now) {
  BuddySignals signals;
  signals.agents = seams_.agents.sessions();
  signals.focusedAgents = watch_.focused(now);
  if (seams_.settings.claudeBudgetTokens() > 0) signals.claudeBudgetTokens = seams_.settings.claudeBudgetTokens();
  for (const auto& gather : gatherers_) gather(signals);
  signals.phaseEnded = std::exchange(pendingPhaseEnd_, std::nullopt);
  return signals;
}

void BuddyNoticeCenter::tick(Instant now) {
  next_ = advanced(now, interval);
  announceDue();
  if (isAllowed && !isAllowed()) return;
  watch_.update(seams_.agents.sessions(), now);
  const BuddySignals signals = gathered(now);
  const auto before = engine_.active;
  std::vector<BuddyNotice> notices = engine_.evaluate(signals, policy(), now, seams_.calendar);
  storeSummaryDay();
  inbox_.add(notices);
  inboxModel_.show(inbox_, notices, now);
  withdraw(before, now);
  // That one still works is for the inbox alone.
  std::erase_if(notices, [](const BuddyNotice& notice) { return notice.rule == BuddyRule::agentStillWorking; });
  if (!notices.empty()) say(notices.front());
  for (const BuddyNotice& notice : notices) offer(notice);
  showBubble();
  updateSleep(signals, now);
  updateQuietText(now);
}

void BuddyNoticeCenter::clockMoved(Seconds by, Instant) {
  engine_.clockMoved(by);
  watch_.clockMoved(by);
  queue_.clockMoved(by);
  next_ = advanced(next_, by);
  lastStir_ = advanced(lastStir_, by);
  announceDue();
}

void BuddyNoticeCenter::zoneChanged(Instant now) {
  inboxModel_.update(now);
  updateQuietText(now);
  if (shown_) Q_EMIT bubbleChanged();
}

void BuddyNoticeCenter::storeSummaryDay() {
  if (!engine_.lastSummaryDay || engine_.lastSummaryDay == seams_.defaults.string(summaryDayKey)) return;
  store(seams_.defaults, summaryDayKey, DefaultsValue{*engine_.lastSummaryDay});
}

void BuddyNoticeCenter::post(const BuddyNotice& notice) {
  inbox_.add({notice});
  inboxModel_.show(inbox_, {notice}, seams_.now());
  if (!policy().allows(notice.rule)) return;
  say(notice);
  offer(notice);
  showBubble();
}

void BuddyNoticeCenter::frontChanged() {
  if (isAllowed && !isAllowed()) return;
  const Instant now = seams_.now();
  if (!watch_.setFront(agentAmong(seams_.workspace.frontmost()), now)) return;
  const auto digest = watch_.digest(now);
  if (digest.empty()) return;
  digest_ = digest;
  digestSince_ = watch_.lastLookAt;
  watch_.lastLookAt = now;
  inboxModel_.showDigest(digest_, digestSince_);
  const BuddyNotice notice = awayNotice(digest_, now);
  if (!policy().allows(notice.rule)) return;
  say(notice);
  offer(notice);
  showBubble();
}

void BuddyNoticeCenter::say(const BuddyNotice& first) {
  lastStir_ = seams_.now();
  buddy_.play(trigger(first.rule), reactionLength);
}

void BuddyNoticeCenter::withdraw(const std::unordered_set<std::string>& before, Instant now) {
  const auto hasPassed = [&](const BuddyNotice& notice) {
    return isLasting(notice.rule) && before.contains(notice.id) && !engine_.active.contains(notice.id);
  };
  std::erase_if(queue_.pending, hasPassed);
  queue_.prune(now);
  if (queue_.current && hasPassed(*queue_.current) && !isPointed_ && !isReached_) advance();
}

void BuddyNoticeCenter::offer(const BuddyNotice& notice) {
  const auto before = queue_.current;
  if (queue_.offer(notice)) {
    if (!isShown_) return;
    // The bubble says more now, and has its time anew.
    shown_ = queue_.current;
    hideLater(bubbleLength);
    Q_EMIT bubbleChanged();
  } else if (queue_.current != before) {
    currentWasShown_ = false;
  }
}

void BuddyNoticeCenter::showBubble() {
  const Instant now = seams_.now();
  while (queue_.current && !currentWasShown_ && queue_.current->expiresAt && *queue_.current->expiresAt <= now)
    queue_.advance(now);
  if (!queue_.current) {
    hideBubble();
    return;
  }
  if (currentWasShown_) {
    if (isShown_) Q_EMIT bubbleChanged();
    return;
  }
  if (isInboxOpen_ || (isOtherPanelOpen && isOtherPanelOpen())) return;
  currentWasShown_ = true;
  isShown_ = true;
  shown_ = queue_.current;
  if (peekBar) peekBar(peekLength);
  chooseFirst();
  Q_EMIT bubbleChanged();
  hideLater(bubbleLength);
}

void BuddyNoticeCenter::hideBubble() {
  ++hideGeneration_;
  if (!std::exchange(isShown_, false)) return;
  isPointed_ = false;
  chooseFirst();
  if (endPeek) endPeek();
  Q_EMIT bubbleChanged();
}

void BuddyNoticeCenter::hideLater(Seconds length) {
  ++hideGeneration_;
  if (isPointed_ || isReached_ || !shown_ || isUrgent(*shown_)) return;
  seams_.later(length, [self = QPointer(this), generation = hideGeneration_] {
    if (self && generation == self->hideGeneration_) self->closeBubble();
  });
}

void BuddyNoticeCenter::advance() {
  queue_.advance(seams_.now());
  currentWasShown_ = false;
  if (queue_.current) {
    showBubble();
    if (currentWasShown_) return;
  }
  hideBubble();
}

void BuddyNoticeCenter::closeBubble() {
  if (!isShown_) return;
  advance();
}

void BuddyNoticeCenter::panelsChanged() {
  const bool isOtherOpen = isOtherPanelOpen && isOtherPanelOpen();
  if (isOtherOpen && isShown_) {
    // It comes again when the panel has gone.
    currentWasShown_ = false;
    hideBubble();
  } else if (!isOtherOpen && queue_.current && !currentWasShown_) {
    showBubble();
  }
}

void BuddyNoticeCenter::inboxOpened() {
  isInboxOpen_ = true;
  lastStir_ = seams_.now();
  buddy_.setAsleep(false);
  inboxModel_.refresh(seams_.now());
  forgetBubbles();
}

// All that waits could be read in the inbox.
void BuddyNoticeCenter::forgetBubbles() {
  queue_ = {};
  currentWasShown_ = false;
  hideBubble();
}

void BuddyNoticeCenter::inboxClosed() {
  isInboxOpen_ = false;
  forgetBubbles();
  markRead();
}

void BuddyNoticeCenter::openInbox() {
  if (showInbox) showInbox();
}

void BuddyNoticeCenter::clearInbox() {
  inbox_.clear();
  digest_.clear();
  digestSince_.reset();
  inboxModel_.show(inbox_, {}, seams_.now());
  inboxModel_.showDigest(digest_, digestSince_);
}

void BuddyNoticeCenter::markRead() { inboxModel_.markRead(seams_.now()); }

void BuddyNoticeCenter::perform(const BuddyAction& action, const BuddyNotice& notice) {
  const auto fails = [this](const QString& title, const QString& detail) {
    if (onProblem) onProblem(title, detail);
  };
  // By value: closing the bubble may end the notice's life.
  const BuddyNotice about = notice;
  if (isShown_ && shown_ && shown_->id == about.id && !std::holds_alternative<BuddyActions::OpenInbox>(action))
    advance();
  std::visit(
      Overloaded{[&](const BuddyActions::Join& join) {
                   if (isOpenableLink(join.url) && openLink)
                     openLink(toQString(join.url));
                   else
                     fails(tr("This link cannot be opened"), toQString(join.url));
                 },
                 [&](const BuddyActions::OpenAgent& agent) {
                   const auto identifier = bundleIdentifier(agent.kind);
                   if (!seams_.workspace.activate(identifier) && !seams_.workspace.open(identifier))
                     fails(tr("%1 has no window").arg(toQString(displayName(agent.kind))),
                           tr("It may run on another machine, or in a terminal that cannot be told apart."));
                 },
                 [&](const BuddyActions::Snooze& snooze) { engine_.snooze(about, snooze.minutes, seams_.now()); },
                 [&](const BuddyActions::OpenDiskCleanup&) {
                   if (openDiskCleanup) openDiskCleanup();
                 },
                 [&](const BuddyActions::OpenInbox&) { openInbox(); }},
      action);
}

void BuddyNoticeCenter::performInBubble(int action) {
  if (!isShown_ || !shown_ || action < 0 || action >= static_cast<int>(shown_->actions.size())) return;
  const BuddyNotice notice = *shown_;
  perform(notice.actions[static_cast<std::size_t>(action)], notice);
}

void BuddyNoticeCenter::performInInbox(const QString& key, int action) {
  const BuddyNotice* found = inboxModel_.noticeOf(key);
  if (!found || action < 0 || action >= static_cast<int>(found->actions.size())) return;
  const BuddyNotice notice = *found;
  perform(notice.actions[static_cast<std::size_t>(action)], notice);
}

void BuddyNoticeCenter::answerBubble() {
  if (!isShown_ || !shown_) return;
  for (std::size_t i = 0; i < shown_->actions.size(); ++i) {
    if (std::holds_alternative<BuddyActions::Snooze>(shown_->actions[i])) continue;
    performInBubble(static_cast<int>(i));
    return;
  }
  openInbox();
}

void BuddyNoticeCenter::setPointed(bool pointed) {
  if (pointed == isPointed_) return;
  isPointed_ = pointed;
  if (isShown_) hideLater(graceLength);
}

void BuddyNoticeCenter::setReached(bool reached) {
  if (reached == isReached_) return;
  isReached_ = reached;
  chooseFirst();
  if (isShown_) hideLater(graceLength);
}

int BuddyNoticeCenter::choiceCount() const {
  return isShown_ && shown_ ? static_cast<int>(shown_->actions.size()) + (bubbleMore() > 0 ? 1 : 0) + 1 : 0;
}

void BuddyNoticeCenter::chooseFirst() {
  const int choice = isReached_ && isShown_ ? 0 : -1;
  if (choice == choice_) return;
  choice_ = choice;
  Q_EMIT choiceChanged();
}

void BuddyNoticeCenter::moveChoice(int by) {
  const int count = choiceCount();
  if (choice_ < 0 || count == 0) return;
  choice_ = (choice_ + by % count + count) % count;
  Q_EMIT choiceChanged();
}

void BuddyNoticeCenter::performChoice() {
  const int count = choiceCount();
  if (choice_ < 0 || choice_ >= count) return;
  const int actions = static_cast<int>(shown_->actions.size());
  if (choice_ < actions)
    performInBubble(choice_);
  else if (choice_ == count - 1)
    closeBubble();
  else
    openInbox();
}

BuddyNoticeText BuddyNoticeCenter::bubbleText() const {
  return shown_ ? noticeText(*shown_, seams_.calendar, seams_.now()) : BuddyNoticeText();
}

void BuddyNoticeCenter::updateSleep(const BuddySignals& signals, Instant now) {
  const bool isBusy = isShown_ || isInboxOpen_ || signals.isFocusRunning ||
                      std::ranges::any_of(signals.agents, [](const AgentSession& session) {
                        return session.status == AgentStatus::needsInput || session.status == AgentStatus::working;
                      });
  if (isBusy) lastStir_ = now;
  buddy_.setAsleep(secondsBetween(lastStir_, now) >= sleepsAfter);
}

void BuddyNoticeCenter::updateQuietText(Instant now) {
  const BuddyPolicy present = policy();
  const auto time = [&](int hour) {
    return toQString(shortTime(seams_.calendar, seams_.calendar().instant(2000, 1, 3, hour)));
  };
  QString text;
  if (present.level == BuddyLevel::off)
    text = tr("Buddy says nothing");
  else if (!engine_.held.empty())
    text = engine_.held.size() == 1 ? tr("1 note waits for the break")
                                    : tr("%1 notes wait for the break").arg(engine_.held.size());
  else if (!present.quietHours || present.quietHours->startHour == present.quietHours->endHour)
    text = tr("No quiet hours");
  else if (present.quietHours->contains(now, seams_.calendar))
    text = tr("Quiet until %1").arg(time(present.quietHours->endHour));
  else
    text = tr("Quiet from %1 to %2").arg(time(present.quietHours->startHour), time(present.quietHours->endHour));
  if (text == quietText_) return;
  quietText_ = text;
  Q_EMIT quietTextChanged();
}

}  // namespace ambrel
