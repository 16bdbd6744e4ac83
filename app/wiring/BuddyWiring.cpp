// Buddy: what he looks at, where he speaks, and what his buttons lead to.

#include <QDesktopServices>

#include "app/AppDelegate.h"
#include "app/base/QmlObjects.h"
#include "core/buddy/Thresholds.h"

namespace ambrel {
namespace {

const QString widget = QStringLiteral("buddy");
// How often the battery is looked at while no tile shows it, and the busiest program while the load is high.
constexpr Seconds batteryRhythm{30}, busiestRhythm{5};

}  // namespace

void AppDelegate::makeBuddy() {
  notices_ = std::make_unique<BuddyNoticeCenter>(BuddyNoticeCenter::Seams{.agents = agents_,
                                                                          .settings = settings_,
                                                                          .defaults = defaults_,
                                                                          .workspace = desktop_.workspace,
                                                                          .calendar = surroundings_.calendar,
                                                                          .now = surroundings_.now,
                                                                          .later = later()});
  keep({notices_.get()});
  notices_->isAllowed = [this] { return license_.allows(ProFeature::proactiveBuddy); };
  notices_->addSignals([this](BuddySignals& signals) {
    signals.claudeBlock = usage_->claude().block;
    signals.claudeLimits = usage_->claudeLimits();
    signals.codex = usage_->codex();
    signals.cpuUsage = system_->cpuUsage();
    if (const auto disk = system_->disk()) signals.diskFreeBytes = disk->freeBytes;
  });
  batteryNeed_ = live_->require(live_->power(), batteryRhythm);
  notices_->addSignals([this](BuddySignals& signals) {
    const auto& power = live_->power().value();
    // At the mains it may rest without charging, and then there is no charger to look for.
    if (power && power->percent)
      signals.battery = {.percent = *power->percent, .isCharging = power->isCharging || power->isOnAdapter};
    if (!signals.cpuUsage || *signals.cpuUsage <= BuddyThresholds::highLoad) {
      busiestNeed_.reset();
      return;
    }
    if (!busiestNeed_) busiestNeed_ = live_->require(live_->topApps(), busiestRhythm);
    const auto& busiest = live_->topApps().value();
    if (busiest && !busiest->empty()) signals.topProcess = busiest->front().name;
  });
  notices_->addSignals([this](BuddySignals& signals) {
    const Instant now = surroundings_.now();
    const PomodoroTimer& pomodoro = *focus_->pomodoro();
    signals.isFocusRunning = pomodoro.isFocusRunning();
    signals.focusSessionsToday = pomodoro.value().completed.today(surroundings_.calendar().dayKey(now));
    const WaterTracker& water = *focus_->water();
    signals.waterGlassesToday = water.count();
    // Who has no tile to count glasses at is not asked to drink.
    if (model_.isOnBar(QStringLiteral("water"))) signals.waterDueAt = water.waterDueAt(now);
  });
  agents_.onSessionFinished = [this] { notices_->sessionFinished(); };
  focus_->pomodoro()->onPhaseEnded = [this](PomodoroPhase ended) {
    notices_->phaseEnded(ended == PomodoroPhase::focus ? BuddySignals::PhaseEnd::focus
                                                       : BuddySignals::PhaseEnd::breakTime);
  };
}

void AppDelegate::addBuddyPanels() {
  DockPopoverController& inbox =
      addTilePanel({}, "Buddy/BuddyInboxLayout.qml", {{QStringLiteral("center"), toVariant(*notices_)}}, {360, 480});
  inbox.setProperty(QStringLiteral("presentation"), toVariant(inbox.presentation()));
  inbox.onContentMade = [this](QObject& content) {
    connect(&content, SIGNAL(settingsAsked()), this, SLOT(openBuddySettings()));
  };
  inboxPanel_ = &inbox;
  connect(&inbox, &DockPopoverController::shownChanged, this, [this, &inbox] {
    if (inbox.isShown())
      notices_->inboxOpened();
    else
      notices_->inboxClosed();
  });
  context_->setClickAction(widget, [this](const QString& item) {
    if (permits(ProFeature::proactiveBuddy)) toggle(inboxPanel_, item);
  });
}

void AppDelegate::startBuddy() {
  const auto anchor = [this] { return dock_->anchor(context_->itemOf(widget)); };
  bubble_ = std::make_unique<BubbleController>(engine_, desktop_.windowStyle, later(), *notices_, anchor);
  connect(notices_.get(), &BuddyNoticeCenter::bubbleChanged, dock_.get(), &DockPanelController::holdingChanged);
  connect(dock_.get(), &DockPanelController::layoutChanged, bubble_.get(), &BubbleController::place);
  toast_.occupied = [this] { return bubble_->presentation().isShown() ? bubble_->placement().frame : QRect(); };
  connect(bubble_.get(), &BubbleController::placed, &toast_, &ToastController::place);

  notices_->isOtherPanelOpen = [this] { return isAnyPanelOpen(); };
  notices_->peekBar = [this](Seconds length) { bubblePeek_ = dock_->peek(length); };
  notices_->endPeek = [this] { dock_->endPeek(bubblePeek_); };
  notices_->showInbox = [this] {
    if (!inboxPanel_->isShown()) toggle(inboxPanel_, context_->itemOf(widget));
  };
  notices_->openLink = [](const QString& url) { QDesktopServices::openUrl(QUrl(url)); };
  notices_->openDiskCleanup = [this] { carryOut(wish::OpenDiskDoctor{}); };
  notices_->onProblem = [this](const QString& title, const QString& detail) {
    toast_.show(title, detail, QStringLiteral("exclamationmark.triangle"));
  };
  due_.add(*notices_);
}

void AppDelegate::addBuddyOnce() {
  if (!license_.allows(ProFeature::proactiveBuddy) || defaults_.boolean("buddyAdded").value_or(false)) return;
  const std::vector<Profile> profiles = model_.profiles();
  for (const Profile& profile : profiles) {
    const std::optional<UUID> first = profile.items.empty() ? std::nullopt : std::optional(profile.items.front().id);
    if (!profile.contains("buddy")) model_.addWidget("buddy", profile.id, first);
  }
  remember("buddyAdded", {true});
}

void AppDelegate::openBuddySettings() {
  chooseSettingsTab(QStringLiteral("buddy"));
  if (!settingsPanel_->isShown()) toggle(settingsPanel_.get());
}

}  // namespace ambrel
