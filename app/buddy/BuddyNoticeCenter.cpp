#include "app/buddy/BuddyNoticeCenter.h"

#include <algorithm>

#include "app/agents/AgentsModel.h"
#include "app/base/QmlObjects.h"
#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "app/model/AppSettings.h"
#include "core/base/Overloaded.h"
#include "core/base/UserDefaults.h"
#include "platform/Workspace.h"

namespace ambrel {
namespace {

constexpr const char* summaryDayKey = "buddySummaryDay";

}  // namespace

BuddyNoticeCenter::BuddyNoticeCenter(Seams seams, QObject* parent)
    : TimedModel(parent), seams_(std::move(seams)), buddy_(seams_.later), speech_(BuddySpeech::from(seams_.now())) {
  keep({&buddy_, &notes_});
  speech_.engine.lastSummaryDay = seams_.defaults.string(summaryDayKey);
  updateInbox(seams_.now());
  seams_.workspace.setFrontmostHandler([this] { frontChanged(); });
  for (const auto changed : {&AppSettings::quietHoursOnChanged, &AppSettings::quietStartHourChanged,
                             &AppSettings::quietEndHourChanged, &AppSettings::buddyLevelChanged})
    connect(&seams_.settings, changed, this, [this] { updateInbox(seams_.now()); });
  for (const auto changed : {&AppSettings::buddyLevelChanged, &AppSettings::buddyCategoriesChanged})
    connect(&seams_.settings, changed, this,
            [this] { changeBubble([this](Instant now) { speech_.bubble.apply(policy(), now); }); });
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

void BuddyNoticeCenter::tick(Instant now) {
  changeBubble([&](Instant) { speech_.bubble.tick(now); });
  if (now >= speech_.nextEvaluation) evaluate(now);
}

void BuddyNoticeCenter::evaluate(Instant now) {
  if (!isAllowed_) {
    speech_.nextEvaluation = advanced(now, BuddySpeech::interval);
    return announceDue();
  }
  BuddySignals signals;
  signals.agents = seams_.agents.sessions();
  if (seams_.settings.claudeBudgetTokens() > 0) signals.claudeBudgetTokens = seams_.settings.claudeBudgetTokens();
  for (const auto& gather : gatherers_) gather(signals);
  // Asked only while there are agents, because it walks the process table.
  const auto front = signals.agents.empty() ? std::nullopt : std::optional(agentsInFront());
  change([&](Instant) { speech_.evaluate(std::move(signals), front, policy(), now, seams_.calendar); });
  const auto& summaryDay = speech_.engine.lastSummaryDay;
  if (summaryDay && summaryDay != seams_.defaults.string(summaryDayKey))
    store(seams_.defaults, summaryDayKey, DefaultsValue{*summaryDay});
  buddy_.setAsleep(speech_.isAsleep(now));
}

void BuddyNoticeCenter::clockMoved(Seconds by, Instant) {
  speech_.clockMoved(by);
  announceDue();
}

void BuddyNoticeCenter::zoneChanged(Instant now) {
  updateInbox(now);
  if (speech_.bubble.shown) Q_EMIT bubbleChanged();
}

void BuddyNoticeCenter::stir() {
  speech_.lastStir = seams_.now();
  buddy_.setAsleep(false);
}

void BuddyNoticeCenter::sessionFinished() {
  if (!isAllowed_) return;
  stir();
  buddy_.showHappy(reactionLength);
}

void BuddyNoticeCenter::setAllowed(bool isAllowed) {
  isAllowed_ = isAllowed;
  if (isAllowed) return;
  BuddyPolicy silence;
  silence.level = BuddyLevel::off;
  change([&](Instant now) { speech_.bubble.apply(silence, now); });
}

void BuddyNoticeCenter::post(const BuddyNotice& notice) {
  if (!isAllowed_) return;
  change([&](Instant now) { speech_.post(notice, policy(), now); });
}

std::set<AgentKind> BuddyNoticeCenter::agentsInFront() const {
  std::set<AgentKind> kinds;
  for (const std::string& identifier : seams_.workspace.agentsInFront())
    for (const AgentKind kind : allCases<AgentKind>())
      if (bundleIdentifier(kind) == identifier) kinds.insert(kind);
  return kinds;
}

void BuddyNoticeCenter::frontChanged() {
  if (isAllowed_) change([this](Instant now) { speech_.lookAtFront(agentsInFront(), policy(), now); });
}

void BuddyNoticeCenter::change(const Act& act) {
  changeBubble([&](Instant now) {
    act(now);
    updateInbox(now);
  });
}

void BuddyNoticeCenter::changeBubble(const Act& act) {
  const BuddyBubble before = speech_.bubble;
  act(seams_.now());
  if (const auto trigger = std::exchange(speech_.trigger, std::nullopt)) buddy_.play(*trigger, reactionLength);
  announceDue();
  const BuddyBubble& bubble = speech_.bubble;
  if (bubble == before) return;
  const bool isSaid = bubble.showings != before.showings, isOver = before.isShown && !bubble.isShown;
  const bool isChosen = bubble.choice != before.choice;
  if (isSaid) Q_EMIT peekAsked(peekLength);
  if (isOver) Q_EMIT peekOver();
  if (isChosen) Q_EMIT choiceChanged();
  Q_EMIT bubbleChanged();
}

void BuddyNoticeCenter::closeBubble() {
  changeBubble([this](Instant now) { speech_.bubble.close(now); });
}

void BuddyNoticeCenter::setInTheWay(bool isInTheWay) {
  changeBubble([&](Instant now) { speech_.bubble.setInTheWay(isInTheWay, now); });
}

void BuddyNoticeCenter::setInboxOpen(bool isOpen) {
  if (isOpen) stir();
  change([&](Instant now) { isOpen ? speech_.openInbox(now) : speech_.closeInbox(now); });
}

void BuddyNoticeCenter::clearInbox() {
  change([this](Instant) { speech_.clear(); });
}

void BuddyNoticeCenter::markRead() {
  change([this](Instant) { speech_.inbox.markRead(); });
}

void BuddyNoticeCenter::perform(const BuddyAction& action, const BuddyNotice& notice) {
  // Copies, because closing the bubble may destroy the originals.
  const BuddyNotice about = notice;
  const BuddyAction picked = action;
  if (hasBubble() && speech_.bubble.shown->id == about.id && !std::holds_alternative<BuddyActions::OpenInbox>(picked))
    closeBubble();
  std::visit(
      Overloaded{
          [&](const BuddyActions::Join& join) {
            if (isOpenableLink(join.url))
              Q_EMIT linkAsked(toQString(join.url));
            else
              Q_EMIT problemFound(tr("This link cannot be opened"), toQString(join.url));
          },
          [&](const BuddyActions::OpenAgent& agent) {
            if (about.sessionID && seams_.agents.openOwnWindow(*about.sessionID)) return;
            const auto identifier = bundleIdentifier(agent.kind);
            if (!seams_.workspace.activate(identifier) && !seams_.workspace.open(identifier))
              Q_EMIT problemFound(tr("%1 has no window").arg(toQString(displayName(agent.kind))),
                                  tr("It may run on another machine, or in a terminal that cannot be told apart."));
          },
          [&](const BuddyActions::Snooze& snooze) { speech_.engine.snooze(about, snooze.minutes, seams_.now()); },
          [&](const BuddyActions::OpenDiskCleanup&) { Q_EMIT diskCleanupAsked(); },
          [&](const BuddyActions::OpenInbox&) { openInbox(); }},
      picked);
}

void BuddyNoticeCenter::performInBubble(int action) {
  if (!hasBubble() || action < 0 || action >= static_cast<int>(speech_.bubble.shown->actions.size())) return;
  perform(speech_.bubble.shown->actions[static_cast<std::size_t>(action)], *speech_.bubble.shown);
}

void BuddyNoticeCenter::performInInbox(const QString& key, int action) {
  const auto& recent = speech_.inbox.recent;
  const auto found = std::ranges::find(recent, key.toStdString(), inboxKey);
  if (found == recent.end() || action < 0 || action >= static_cast<int>(found->actions.size())) return;
  perform(found->actions[static_cast<std::size_t>(action)], *found);
}

void BuddyNoticeCenter::answerBubble() {
  if (!hasBubble()) return;
  const std::vector<BuddyAction>& actions = speech_.bubble.shown->actions;
  for (std::size_t i = 0; i < actions.size(); ++i)
    if (!std::holds_alternative<BuddyActions::Snooze>(actions[i])) return performInBubble(static_cast<int>(i));
  openInbox();
}

void BuddyNoticeCenter::setPointed(bool pointed) {
  changeBubble([&](Instant now) { speech_.bubble.setPointed(pointed, now); });
}

void BuddyNoticeCenter::setReached(bool reached) {
  changeBubble([&](Instant now) { speech_.bubble.setReached(reached, now); });
}

void BuddyNoticeCenter::moveChoice(int by) {
  changeBubble([&](Instant) { speech_.bubble.moveChoice(by); });
}

void BuddyNoticeCenter::performChoice() {
  const auto choices = speech_.bubble.choices();
  const auto chosen = speech_.bubble.choice;
  if (!chosen || *chosen >= choices.size()) return;
  switch (choices[*chosen].kind) {
    case BuddyBubble::Choice::Kind::action:
      return performInBubble(static_cast<int>(choices[*chosen].action));
    case BuddyBubble::Choice::Kind::more:
      return openInbox();
    case BuddyBubble::Choice::Kind::close:
      return closeBubble();
  }
}

BuddyNoticeText BuddyNoticeCenter::bubbleText() const {
  const auto& shown = speech_.bubble.shown;
  return shown ? noticeText(*shown, seams_.calendar, seams_.now()) : BuddyNoticeText();
}

void BuddyNoticeCenter::updateInbox(Instant now) {
  notes_.setRows(inboxRows(speech_.inbox, seams_.calendar, now));
  if (replaced(inbox_, buddyInboxFace(speech_, policy(), seams_.calendar, now))) Q_EMIT inboxChanged();
}

}  // namespace ambrel
