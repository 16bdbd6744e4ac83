// Timers, reminders, counters and logs, their panels, and what their notifications lead to.

#include <algorithm>

#include "app/AppDelegate.h"
#include "app/base/QmlObjects.h"

namespace ambrel {

void AppDelegate::makeFocus() {
  const auto onBar = [this](const char* widget) {
    return [this, widget] { return model_.isOnBar(QString::fromLatin1(widget)); };
  };
  // An alarm has to ring whichever profile the displays have chosen by then.
  const auto inAnyProfile = [this] {
    return std::any_of(model_.profiles().begin(), model_.profiles().end(),
                       [](const Profile& profile) { return profile.contains("alarm"); });
  };
  focus_ = std::make_unique<FocusModels>(
      FocusSeams{.defaults = defaults_,
                 .calendar = surroundings_.calendar,
                 .notifications = desktop_.notifications,
                 .sounds = desktop_.sounds,
                 .now = surroundings_.now},
      surroundings_.dataFolder / "habits.json",
      FocusPresence{
          .water = onBar("water"), .alarm = inAnyProfile, .eyeBreak = onBar("eyeBreak"), .standUp = onBar("standUp")},
      due_);
  keep({focus_.get()});
}

void AppDelegate::addFocusPanels() {
  const auto pomodoro = [this] { return QVariantMap{{QStringLiteral("pomodoro"), toVariant(*focus_->pomodoro())}}; };
  addTilePanel({"pomodoro"}, "Focus/PomodoroSettings.qml", pomodoro(), {340, 394});
  addTilePanel({"focusStats"}, "Focus/FocusStatsPanel.qml", pomodoro(), {340, 236});
  addTilePanel({"stopwatch"}, "Focus/StopwatchPanel.qml",
               {{QStringLiteral("stopwatch"), toVariant(*focus_->stopwatch())}}, {340, 164});
  addTilePanel({"water"}, "Focus/WaterSettings.qml", {{QStringLiteral("water"), toVariant(*focus_->water())}},
               {340, 302});
  addTilePanel({"timer"}, "Focus/TimerPanel.qml", {{QStringLiteral("timer"), toVariant(*focus_->timer())}}, {340, 284});
  addTilePanel({"alarm"}, "Focus/AlarmSettings.qml", {{QStringLiteral("alarm"), toVariant(*focus_->alarm())}},
               {340, 324});
  addTilePanel({"habits"}, "Focus/HabitsPanel.qml", {{QStringLiteral("habits"), toVariant(*focus_->habits())}},
               {340, 420});
  addTilePanel({"mood"}, "Focus/MoodPanel.qml", {{QStringLiteral("mood"), toVariant(*focus_->mood())}}, {340, 150});
  addTileSettings({"eyeBreak"}, "Focus/BreakSettings.qml",
                  {{QStringLiteral("reminder"), toVariant(*focus_->eyeBreak())}}, {340, 226});
  addTilePanel({"standUp"}, "Focus/BreakSettings.qml",
               {{QStringLiteral("reminder"), toVariant(*focus_->standUp())}, {QStringLiteral("isForEyes"), false}},
               {340, 226});

  context_->setMenuCommand(
      QStringLiteral("eyeBreak"),
      {.text = [this] { return focus_->eyeBreak()->isOn() ? tr("Pause Eye Breaks") : tr("Resume Eye Breaks"); },
       .symbol = QStringLiteral("eye"),
       .action = [this](const QString&) { focus_->eyeBreak()->setIsOn(!focus_->eyeBreak()->isOn()); }});
  context_->setMenuCommand(
      QStringLiteral("mood"),
      {.text = [] { return tr("Change Today's Mood"); },
       .symbol = QStringLiteral("face.smiling"),
       .action = [this](const QString& item) { context_->activate(QStringLiteral("mood"), item); }});

  answerNotifications("alarm", [this](const std::string& action) { focus_->alarm()->answer(action); });
  followDismissal("alarm", [this] { focus_->alarm()->answer("stop"); });
  answerNotifications("eyeBreak", [this](const std::string&) {
    if (focus_->eyeBreak()->isDue()) focus_->eyeBreak()->takeBreak();
  });
  for (const char* widget : {"pomodoro", "water", "timer", "standUp"})
    answerNotifications(widget, [this, id = QString::fromLatin1(widget)](const std::string&) {
      context_->activate(id, context_->itemOf(id));
    });
}

}  // namespace ambrel
