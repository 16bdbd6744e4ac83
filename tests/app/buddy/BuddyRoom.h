#pragma once
// Buddy on a desktop that the test plays: the sessions, the window in front, the time.

#include "app/agents/AgentsModel.h"
#include "app/buddy/BuddyNoticeCenter.h"
#include "app/model/AppSettings.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/agents/Sessions.h"
#include "tests/fakes/DelayedSteps.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/HeldWork.h"

namespace ambrel {

struct BuddyRoom {
  // 09:41 on a Saturday.
  explicit BuddyRoom(const std::string& start = "2026-11-21T09:41:00Z") : now(parseISO8601(start).value()) {
    restart();
  }

  // The program is started again; what is stored stays.
  void restart() {
    center.reset();
    steps_.clear();
    settings = std::make_unique<AppSettings>(defaults);
    agents = std::make_unique<AgentsModel>(*settings, readersOf(sessions), folder.path(), calendar,
                                           AgentsModel::Seams{.background = held.background(),
                                                              .notifications = notifications,
                                                              .workspace = workspace,
                                                              .now = [this] { return now; }});
    center = std::make_unique<BuddyNoticeCenter>(BuddyNoticeCenter::Seams{.agents = *agents,
                                                                          .settings = *settings,
                                                                          .defaults = defaults,
                                                                          .workspace = workspace,
                                                                          .calendar = calendar,
                                                                          .now = [this] { return now; },
                                                                          .later = steps_.later()});
    center->addSignals([this](BuddySignals& signals) {
      signals.battery = battery;
      signals.isFocusRunning = isFocusRunning;
    });
    const auto on = [this](auto signal, auto act) { QObject::connect(center.get(), signal, center.get(), act); };
    on(&BuddyNoticeCenter::peekAsked, [this](Seconds length) {
      peeks.push_back(length.count());
      isPeeking = true;
    });
    on(&BuddyNoticeCenter::peekOver, [this] { isPeeking = false; });
    on(&BuddyNoticeCenter::inboxAsked, [this] {
      ++inboxes;
      center->setInboxOpen(true);
    });
    on(&BuddyNoticeCenter::diskCleanupAsked, [this] { ++cleanups; });
    on(&BuddyNoticeCenter::linkAsked, [this](const QString& url) { links << url; });
    on(&BuddyNoticeCenter::problemFound, [this](const QString& title) { problems << title; });
  }

  // Time passes second by second, as the program's timers would find it.
  void pass(double seconds) {
    const Instant end = advanced(now, Seconds(seconds));
    while (now < end) {
      now = std::min(end, advanced(now, Seconds(1)));
      steps_.runDue();
      if (*center->due() <= now) center->tick(now);
    }
  }
  void tick() { center->evaluate(now); }
  void poll(std::vector<AgentSession> list) {
    sessions = std::move(list);
    agents->refresh();
    held.letGo();
  }
  // The titles of the inbox, newest first.
  QStringList inbox() const {
    QStringList titles;
    for (const BuddyNotice& notice : center->speech().inbox.recent) titles << QString::fromStdString(notice.title);
    return titles;
  }
  QString bubble() const { return center->hasBubble() ? center->bubbleText().title : QString(); }

  TemporaryFolder folder;
  UserDefaults defaults{folder / "defaults.json"};
  HeldWork held;
  FakeNotifications notifications;
  FakeWorkspace workspace;
  Calendar calendar{"UTC", "en_GB"};
  Instant now;
  std::vector<AgentSession> sessions;
  std::optional<BuddySignals::Battery> battery;
  bool isFocusRunning = false, isPeeking = false;
  std::vector<double> peeks;
  int inboxes = 0, cleanups = 0;
  QStringList links, problems;
  std::unique_ptr<AppSettings> settings;
  std::unique_ptr<AgentsModel> agents;
  std::unique_ptr<BuddyNoticeCenter> center;

 private:
  DelayedSteps steps_{now};
};

}  // namespace ambrel
