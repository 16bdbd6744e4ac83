#pragma once

#include "app/focus/FocusModel.h"

namespace ambrel {

// One mood a day, 1 to 5.
class MoodLog : public ambrel::FocusModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::MoodWeek week READ week NOTIFY changed FINAL)

 public:
  explicit MoodLog(FocusSeams seams, QObject* parent = nullptr);

  const MoodWeek& week() const { return week_; }

  // The same mood again takes it back.
  Q_INVOKABLE void setToday(int mood);
  Q_INVOKABLE static QString nameOf(int mood);

  void reload() override;

 private:
  bool renewFace(Instant now) override { return show(week_, moodWeek(days_, seams_.calendar, now)); }

  DayCounts days_;
  MoodWeek week_;
};

}  // namespace ambrel
