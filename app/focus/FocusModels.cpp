#include "app/focus/FocusModels.h"

#include <QQmlEngine>

namespace ambrel {

FocusModels::FocusModels(const FocusSeams& seams, std::filesystem::path habitsFile, const FocusPresence& presence,
                         DueTimer& due, QObject* parent)
    : QObject(parent),
      pomodoro_(seams),
      water_(seams, presence.water),
      stopwatch_(seams.now),
      timer_(seams),
      alarm_(seams, presence.alarm),
      eyeBreak_(BreakKind::eyes, seams, presence.eyeBreak),
      standUp_(BreakKind::stand, seams, presence.standUp),
      breathing_(seams.now),
      habits_(std::move(habitsFile), seams.calendar, seams.now),
      mood_(seams.defaults, seams.calendar, seams.now, true) {
  for (TimedModel* model : std::initializer_list<TimedModel*>{&pomodoro_, &water_, &stopwatch_, &timer_, &alarm_,
                                                              &eyeBreak_, &standUp_, &breathing_, &habits_, &mood_}) {
    QQmlEngine::setObjectOwnership(model, QQmlEngine::CppOwnership);
    due.add(*model);
  }
}

void FocusModels::reload() {
  pomodoro_.reload();
  water_.reload();
  alarm_.reload();
  eyeBreak_.reload();
  standUp_.reload();
  mood_.reload();
}

}  // namespace ambrel
