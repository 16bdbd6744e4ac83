#include "app/buddy/BuddyNoticeCenter.h"

#include <algorithm>
#include <set>

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

std::set<AgentKind> agentsAmong(const std::vector<std::string>& identifiers) {
  std::set<AgentKind> kinds;
  for (const std::string& identifier : identifiers)
    for (const AgentKind kind : allCases<AgentKind>())
      if (bundleIdentifier(kind) == identifier) kinds.insert(kind);
  return kinds;
}

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
  for (const auto changed : {&AppSettings::buddyLevelChanged, &AppSettings::buddyCategoriesChanged})
    connect(&seams_.settings, changed, this, [this] { change([this] { bubble_.apply(policy(), seams_.now()); }); });
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

std::optional<Instant> BuddyNoticeCenter::due() const {
  return bubble_.closesAt ? std::min(*bubble_.closesAt, next_) : next_;
}

void BuddyNoticeCenter::tick(Instant now) {
  change([&] { bubble_.tick(now); });
  if (now >= next_) evaluate(now);
}

void BuddyNoticeCenter::evaluate(Instant now) {
  next_ = advanced(now, interval);
  announceDue();
  if (isAllowed && !isAllowed()) return;
  watch_.update(seams_.agents.sessions(), now);
  // Looked at only while there is an agent to be in view: it takes a walk through the process table.
  if (!seams_.agents.sessions().empty()) lookAtFront(now);
  const BuddySignals signals = gathered(now);
  const BuddyPolicy present = policy();
  std::vector<BuddyNotice> notices = engine_.evaluate(signals, present, now, seams_.calendar);
  storeSummaryDay();
  // What waited for the break is asked again: the user may have switched it off meanwhile.
  std::erase_if(notices, [&](const BuddyNotice& notice) { return !present.allows(notice.rule); });
  inbox_.add(notices, now);
  // What waited is said now, and has its whole time to be seen.
  for (BuddyNotice& notice : notices) notice.date = now;
  inboxModel_.show(inbox_, notices, now);
  // That one still works is for the inbox alone.
  std::erase_if(notices, [](const BuddyNotice& notice) { return notice.rule == BuddyRule::agentStillWorking; });
  change([&] {
    bubble_.withdraw(engine_.ended, now);
    offer(notices, now);
  });
  updateSleep(signals, now);
  updateQuietText(now);
}

void BuddyNoticeCenter::clockMoved(Seconds by, Instant) {
  engine_.clockMoved(by);
  watch_.clockMoved(by);
  bubble_.clockMoved(by);
  next_ = advanced(next_, by);
  lastStir_ = advanced(lastStir_, by);
  announceDue();
}

void BuddyNoticeCenter::zoneChanged(Instant now) {
  inboxModel_.update(now);
  updateQuietText(now);
  if (bubble_.shown) Q_EMIT bubbleChanged();
}

void BuddyNoticeCenter::storeSummaryDay() {
  if (!engine_.lastSummaryDay || engine_.lastSummaryDay == seams_.defaults.string(summaryDayKey)) return;
  store(seams_.defaults, summaryDayKey, DefaultsValue{*engine_.lastSummaryDay});
}

void BuddyNoticeCenter::sessionFinished() {
  if (isAllowed && !isAllowed()) return;
  lastStir_ = seams_.now();
  buddy_.setAsleep(false);
  buddy_.showHappy(reactionLength);
}

void BuddyNoticeCenter::post(const BuddyNotice& notice) {
  const Instant now = seams_.now();
  inbox_.add({notice}, now);
  inboxModel_.show(inbox_, {notice}, now);
  if (policy().allows(notice.rule)) change([&] { offer({notice}, now); });
}

void BuddyNoticeCenter::frontChanged() {
  if (isAllowed && !isAllowed()) return;
  lookAtFront(seams_.now());
}

void BuddyNoticeCenter::lookAtFront(Instant now) {
  if (!watch_.setFront(agentsAmong(seams_.workspace.agentsInFront()), now)) return;
  const auto digest = watch_.digest(now);
  if (digest.empty()) return;
  digest_ = digest;
  digestSince_ = watch_.lastLookAt;
  watch_.lastLookAt = now;
  inboxModel_.showDigest(digest_, digestSince_);
  const BuddyNotice notice = awayNotice(digest_, now);
  if (policy().allows(notice.rule)) change([&] { offer({notice}, now); });
}

void BuddyNoticeCenter::offer(const std::vector<BuddyNotice>& notices, Instant now) {
  if (!notices.empty()) {
    lastStir_ = now;
    buddy_.play(trigger(notices.front().rule), reactionLength);
  }
  for (const BuddyNotice& notice : notices) bubble_.offer(notice, now);
  bubble_.present(now);
}

void BuddyNoticeCenter::change(const std::function<void()>& act) {
  const BuddyBubble before = bubble_;
  bubble_.setPanelOpen(isOtherPanelOpen && isOtherPanelOpen(), seams_.now());
  act();
  if (bubble_ == before) return;
  if (bubble_.showings != before.showings && peekBar) peekBar(peekLength);
  if (before.isShown && !bubble_.isShown && endPeek) endPeek();
  if (bubble_.choice != before.choice) Q_EMIT choiceChanged();
  Q_EMIT bubbleChanged();
  announceDue();
}

void BuddyNoticeCenter::closeBubble() {
  change([this] { bubble_.close(seams_.now()); });
}

void BuddyNoticeCenter::panelsChanged() {
  change([] {});
}

void BuddyNoticeCenter::inboxOpened() {
  lastStir_ = seams_.now();
  buddy_.setAsleep(false);
  inboxModel_.refresh(seams_.now());
  change([this] { bubble_.setInboxOpen(true, seams_.now()); });
}

void BuddyNoticeCenter::inboxClosed() {
  change([this] { bubble_.setInboxOpen(false, seams_.now()); });
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
  if (bubble_.isShown && bubble_.shown->id == about.id && !std::holds_alternative<BuddyActions::OpenInbox>(action))
    closeBubble();
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
  if (!bubble_.isShown || action < 0 || action >= static_cast<int>(bubble_.shown->actions.size())) return;
  const BuddyNotice notice = *bubble_.shown;
  perform(notice.actions[static_cast<std::size_t>(action)], notice);
}

void BuddyNoticeCenter::performInInbox(const QString& key, int action) {
  const BuddyNotice* found = inboxModel_.noticeOf(key);
  if (!found || action < 0 || action >= static_cast<int>(found->actions.size())) return;
  const BuddyNotice notice = *found;
  perform(notice.actions[static_cast<std::size_t>(action)], notice);
}

void BuddyNoticeCenter::answerBubble() {
  if (!bubble_.isShown) return;
  const std::vector<BuddyAction>& actions = bubble_.shown->actions;
  for (std::size_t i = 0; i < actions.size(); ++i)
    if (!std::holds_alternative<BuddyActions::Snooze>(actions[i])) return performInBubble(static_cast<int>(i));
  openInbox();
}

void BuddyNoticeCenter::setPointed(bool pointed) {
  change([&] { bubble_.setPointed(pointed, seams_.now()); });
}

void BuddyNoticeCenter::setReached(bool reached) {
  change([&] { bubble_.setReached(reached, seams_.now()); });
}

void BuddyNoticeCenter::moveChoice(int by) {
  change([&] { bubble_.moveChoice(by); });
}

void BuddyNoticeCenter::performChoice() {
  const auto choices = bubble_.choices();
  if (!bubble_.choice || *bubble_.choice >= choices.size()) return;
  const BuddyBubble::Choice choice = choices[*bubble_.choice];
  switch (choice.kind) {
    case BuddyBubble::Choice::Kind::action:
      return performInBubble(static_cast<int>(choice.action));
    case BuddyBubble::Choice::Kind::more:
      return openInbox();
    case BuddyBubble::Choice::Kind::close:
      return closeBubble();
  }
}

BuddyNoticeText BuddyNoticeCenter::bubbleText() const {
  return bubble_.shown ? noticeText(*bubble_.shown, seams_.calendar, seams_.now()) : BuddyNoticeText();
}

void BuddyNoticeCenter::updateSleep(const BuddySignals& signals, Instant now) {
  const bool isBusy = bubble_.isShown || bubble_.isInboxOpen() || signals.isFocusRunning ||
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
