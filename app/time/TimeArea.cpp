#include "app/time/TimeArea.h"

#include <algorithm>

#include "app/base/QmlObjects.h"

namespace ambrel {
TimeArea::TimeArea(TimeSeams seams, DueTimer& due, QObject* parent)
    : Area(QStringLiteral("Time"), parent),
      clock_(seams),
      month_(seams),
      shown_(whoShowsWhat()) {
  keep({this});
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
          {&month_, openTheMonth}};
}

void TimeArea::widgetsChanged(const std::set<DockWidget>& onBar, bool areSeen, Instant /*now*/) {
  for (const auto& [model, widgets] : shown_)
    model->setWanted(areSeen &&
                     std::ranges::any_of(widgets, [&](DockWidget widget) { return onBar.contains(widget); }));
}

void TimeArea::defaultsChanged(const std::set<std::string>& /*keys*/) {
  for (const Shown& shown : shown_) shown.model->refresh();
}

}  // namespace ambrel
