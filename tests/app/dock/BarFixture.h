#pragma once
// The bar on a desktop that the test plays: its pointer, its screens, its time.

#include <QQmlEngine>
#include <deque>

#include "app/agents/AgentsModel.h"
#include "app/base/QmlObjects.h"
#include "app/dock/DockPanelController.h"
#include "tests/TemporaryFolder.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/HeldWork.h"

namespace ambrel {

// Steps that are carried out when the test's time has come to them.
class DelayedSteps {
 public:
  explicit DelayedSteps(const Instant& now) : now_(now) {}
  DelayedStep later() {
    return [this](Seconds delay, std::function<void()> step) {
      steps_.emplace_back(advanced(now_, delay), std::move(step));
    };
  }
  void runDue() {
    for (auto& [due, step] : std::exchange(steps_, {})) {
      if (due <= now_)
        step();
      else
        steps_.emplace_back(due, std::move(step));
    }
  }

 private:
  const Instant& now_;
  std::deque<std::pair<Instant, std::function<void()>>> steps_;
};

// What the list of sessions is made from.
class ListReader : public AgentSessionReader {
 public:
  explicit ListReader(const std::vector<AgentSession>& list) : list_(list) {}
  std::vector<AgentSession> sessions(const std::filesystem::path&, Instant) const override { return list_; }

 private:
  const std::vector<AgentSession>& list_;
};

// The models that a widget may reach, without a bar.
struct ContextFixture {
  TemporaryFolder folder;
  UserDefaults defaults{folder / "defaults.json"};
  AppSettings settings{defaults};
  LicenseManager license;
  AppModel model{folder / "profiles.json", defaults, license, [] { return std::vector<DisplaySnapshot>(); }};
  HeldWork held;
  FakeNotifications notifications;
  FakeWorkspace workspace;
  Instant now = parseISO8601("2026-11-21T09:41:00Z").value();
  Calendar calendar{"UTC", "en_US"};
  std::vector<AgentSession> sessions;
  AgentsModel agents{settings, readers(), folder.path(), calendar,
                     AgentsModel::Seams{.background = held.background(),
                                        .notifications = notifications,
                                        .workspace = workspace,
                                        .now = [this] { return now; }}};
  WidgetContext context{model, settings};

  ContextFixture() { keep({&settings, &model, &license, &agents, &context}); }
  // The active profile holds these widgets and nothing else.
  void putOnBar(const std::vector<std::string>& widgets) {
    Profile profile = *model.activeProfile();
    profile.items.clear();
    for (const std::string& widget : widgets) profile.items.push_back(DockItem::holding(widget));
    model.setProfiles({profile});
  }
  QString item(std::size_t slot) const {
    return QString::fromStdString(model.activeProfile()->items.at(slot).id.text());
  }
  void pollAgents(std::vector<AgentSession> list) {
    sessions = std::move(list);
    agents.refresh();
    held.letGo();
  }

 private:
  AgentReaders readers() {
    AgentReaders list;
    list.push_back(std::make_unique<ListReader>(sessions));
    return list;
  }
};

struct BarFixture : ContextFixture {
  QQmlEngine engine;
  FakePointer pointer;
  FakeScreens screens;
  FakeWindowStyle windowStyle;
  DelayedSteps steps{now};
  bool isHeld = false;
  std::vector<double> maxLengths;
  DockPanelController bar{engine, context,
                          DockPanelController::Seams{.pointer = pointer,
                                                     .screens = screens,
                                                     .windowStyle = windowStyle,
                                                     .now = [this] { return now; },
                                                     .later = steps.later()}};

  BarFixture() {
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    keep({&bar});
    pointer.at = away;
    bar.isHoldingOpen = [this] { return isHeld; };
    bar.onMaxLength = [this](qreal length) { maxLengths.push_back(length); };
  }
  // Time passes, and the bar ticks when it has asked to.
  void pass(double seconds) {
    for (int i = 0, count = qRound(seconds * 30); i < count; ++i) {
      now = advanced(now, BarReveal::tickInterval);
      steps.runDue();
      if (bar.isTicking()) bar.tick(now);
    }
  }
  // In the window system's coordinates.
  QRect frame() const { return bar.anchor({}).bar; }
  bool isShown() const { return bar.presentation().isShown(); }

  // Far from every edge of the screen of 1600 x 900.
  static constexpr Point away{800, 450};
  static constexpr Point onBar{800, 40};
};

}  // namespace ambrel
