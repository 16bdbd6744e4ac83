#include "app/time/TimeArea.h"

#include <algorithm>

#include "app/base/QmlObjects.h"
#include "core/settings.h"

namespace ambrel {
namespace {

TimeReadingModel::Read reading(TimeSpan span) {
  return [span](const Calendar& calendar, Instant now) { return spanReading(span, calendar, now); };
}

}  // namespace

TimeArea::TimeArea(TimeSeams seams, DueTimer& due, QObject* parent)
    : Area(QStringLiteral("Time"), parent),
      clock_(seams),
      month_(seams),
      worldClock_(seams),
      meeting_(seams, *worldClock_.cities()),
      countdown_(seams),
      moon_(seams),
      converter_(seams),
      day_(seams, reading(TimeSpan::day)),
      week_(seams, reading(TimeSpan::week)),
      monthOfYear_(seams, reading(TimeSpan::month)),
      year_(seams, reading(TimeSpan::year)),
      weekend_(seams, weekendReading),
      weekNumber_(seams,
                  [&defaults = seams.defaults](const Calendar& calendar, Instant now) {
                    return weekNumberReading(valueOf(defaults, setting::weekNumbering), calendar, now);
                  }),
      binary_(seams, binaryReading),
      unix_(seams, unixReading),
      shown_(whoShowsWhat()) {
  keep({this, &converter_});
  for (const Shown& shown : shown_) {
    keep({shown.model});
    due.add(*shown.model);
  }
}

std::vector<TimeArea::Shown> TimeArea::whoShowsWhat() {
  using enum DockWidget;
  // A click on one of these opens the calendar's page.
  const std::set openTheMonth{
      DockWidget::clock,      date,         analogClock, flipClock, DockWidget::binaryClock, week,
      DockWidget::weekNumber, monthCalendar};
  return {{&clock_, {DockWidget::clock, date, analogClock, flipClock}},
          {&month_, openTheMonth},
          {&worldClock_, {DockWidget::worldClock}},
          {&meeting_, {meetingPlanner}},
          {&countdown_, {DockWidget::countdown}},
          {&moon_, {moonPhase}},
          {&day_, {DockWidget::dayProgress}},
          {&week_, {}},
          {&monthOfYear_, {DockWidget::monthProgress}},
          {&year_, {DockWidget::yearProgress}},
          {&weekend_, {DockWidget::weekend}},
          {&weekNumber_, {DockWidget::weekNumber}},
          {&binary_, {DockWidget::binaryClock}},
          {&unix_, {DockWidget::unixTime}}};
}

QVariantMap TimeArea::sample(DockWidget widget) {
  // The time as it is, once.
  for (const Shown& shown : shown_)
    if (shown.widgets.contains(widget)) shown.model->update();
  return {};
}

void TimeArea::widgetsChanged(const std::set<DockWidget>& onBar, bool areSeen, Instant /*now*/) {
  for (const auto& [model, widgets] : shown_)
    model->setWanted(areSeen &&
                     std::ranges::any_of(widgets, [&](DockWidget widget) { return onBar.contains(widget); }));
}

void TimeArea::defaultsChanged(const std::set<std::string>& keys) {
  if (keys.contains(WorldClockModel::key)) worldClock_.cities()->reload();
  if (keys.contains(MeetingModel::key)) meeting_.cities()->reload();
  for (const Shown& shown : shown_) shown.model->refresh();
}

}  // namespace ambrel
