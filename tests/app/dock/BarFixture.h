#pragma once
// The bar on a desktop that the test plays: its pointer, its screens, its time.

#include <QQmlEngine>

#include "app/agents/AgentsModel.h"
#include "app/base/QmlObjects.h"
#include "app/dock/DockPanelController.h"
#include "tests/app/model/ProfilesRoom.h"
#include "tests/core/agents/Sessions.h"
#include "tests/fakes/DelayedSteps.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/HeldWork.h"

namespace ambrel {

// The models that a widget may reach, without a bar.
struct ContextFixture : ProfilesRoom {
  AppSettings settings{defaults};
  HeldWork held;
  FakeNotifications notifications;
  FakeWorkspace workspace;
  Instant now = parseISO8601("2026-11-21T09:41:00Z").value();
  Calendar calendar{"UTC", "en_US"};
  std::vector<AgentSession> sessions;
  AgentsModel agents{settings, readersOf(sessions), folder.path(), calendar,
                     AgentsModel::Seams{.background = held.background(),
                                        .notifications = notifications,
                                        .workspace = workspace,
                                        .now = [this] { return now; }}};
  WidgetContext context{model, settings};

  ContextFixture() { keep({&settings, &model, &license, &agents, &context}); }
  void putOnBar(const std::vector<std::string>& widgets) { ambrel::putOnBar(model, widgets); }
  QString item(std::size_t slot) const {
    return QString::fromStdString(model.activeProfile()->items.at(slot).id.text());
  }
  void pollAgents(std::vector<AgentSession> list) {
    sessions = std::move(list);
    agents.refresh();
    held.letGo();
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
  bool isShownAfter(double seconds) {
    pass(seconds);
    return isShown();
  }
  bool isShownAfter(double seconds, Point to) {
    pointer.move(to);
    return isShownAfter(seconds);
  }

  // Far from every edge of the screen of 1600 x 900.
  static constexpr Point away{800, 450};
  static constexpr Point onBar{800, 40};
};

}  // namespace ambrel
