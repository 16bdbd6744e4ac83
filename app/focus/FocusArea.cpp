#include "app/focus/FocusArea.h"

#include <algorithm>

#include "app/base/QmlObjects.h"
#include "core/dock.h"

namespace ambrel {

FocusArea::FocusArea(const FocusSeams& seams, std::filesystem::path habitsFile, DueTimer& due, Shell& shell,
                     QObject* parent)
    : Area(QStringLiteral("Focus"), parent),
      shell_(shell),
      calendar_(seams.calendar),
      pomodoro_(seams),
      water_(seams, [&shell] { return shell.isOnBar(DockWidget::water); }),
      stopwatch_(seams),
      timer_(seams),
      alarm_(seams, [&shell] { return shell.isInAnyProfile(DockWidget::alarm); }),
      eyeBreak_(BreakKind::eyes, seams, [&shell] { return shell.isOnBar(DockWidget::eyeBreak); }),
      standUp_(BreakKind::stand, seams, [&shell] { return shell.isOnBar(DockWidget::standUp); }),
      breathing_(seams),
      habits_(std::move(habitsFile), seams),
      mood_(seams) {
  connect(&habits_, &HabitStore::problemFound, this, [&shell](const QString& title, const QString& detail) {
    shell.showToast(title, detail, QStringLiteral("exclamationmark.triangle"));
  });
  keep({this});
  for (FocusModel* model : models_) {
    keep({model});
    due.add(*model);
  }
}

void FocusArea::defaultsChanged(const std::set<std::string>& /*keys*/) {
  for (FocusModel* model : models_) model->reload();
}

void FocusArea::addSignals(BuddySignals& signals, Instant now) {
  signals.isFocusRunning = pomodoro_.value().isFocusRunning();
  signals.focusSessionsToday = pomodoro_.value().completed.today(calendar_().dayKey(now));
  signals.waterGlassesToday = water_.face().count;
  signals.waterDueAt = water_.waterDueAt(now);
}

void FocusArea::addPeeks(PeekSignals& signals, Instant now) { signals.waterDue = water_.waterDueAt(now); }

bool FocusArea::answerNotification(const std::string& identifier, const std::string& action) {
  if (identifier == "alarm") {
    alarm_.answer(action);
    return true;
  }
  if (identifier == "eyeBreak") {
    if (eyeBreak_.face().isDue) eyeBreak_.takeBreak();
    return true;
  }
  using enum DockWidget;
  for (const DockWidget widget : {pomodoro, water, timer, standUp})
    if (identifier == nameOf(widget)) {
      shell_.activate(widget);
      return true;
    }
  return false;
}

void FocusArea::notificationDismissed(const std::string& identifier) {
  if (identifier == "alarm") alarm_.answer("stop");
}

}  // namespace ambrel
