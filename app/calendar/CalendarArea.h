#pragma once
// The user's calendars, and what they tell Buddy and the bar.

#include "app/base/Area.h"
#include "app/base/DueTimer.h"
#include "app/base/QmlObjects.h"
#include "app/calendar/CalendarModel.h"

namespace ambrel {

class CalendarArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::CalendarModel* calendar READ calendar CONSTANT FINAL)

 public:
  // due outlives it, as does what the seams refer to.
  CalendarArea(CalendarModel::Seams seams, DueTimer& due, QObject* parent = nullptr)
      : Area(QStringLiteral("Calendar"), parent), calendar_(std::move(seams)) {
    keep({this});
    due.add(calendar_);
  }

  CalendarModel* calendar() { return &calendar_; }

  void widgetsChanged(const std::set<DockWidget>& onBar, bool areSeen, Instant now) override {
    using enum DockWidget;
    const bool hasTile = onBar.contains(nextEvent) || onBar.contains(agenda) || onBar.contains(reminders);
    calendar_.setSeen(areSeen && hasTile, now);
  }
  QVariantMap sample(DockWidget widget) override {
    const CalendarFace face = calendar_.sampleFace();
    QVariantMap properties{{QStringLiteral("face"), QVariant::fromValue(face)}};
    if (widget == DockWidget::agenda)
      properties.insert({{QStringLiteral("value"), face.next.title}, {QStringLiteral("subLine"), face.todaySummary}});
    return properties;
  }
  void defaultsChanged(const std::set<std::string>& keys) override {
    for (const std::string& key : keys)
      if (key.starts_with("calendar")) return calendar_.reload();
  }
  void addSignals(BuddySignals& signals, Instant now) override { signals.meetings = calendar_.meetings(now); }
  void addPeeks(PeekSignals& signals, Instant now) override { signals.nextEvent = calendar_.nextEvent(now); }

 private:
  CalendarModel calendar_;
};

}  // namespace ambrel
