#pragma once

#include "app/focus/FocusModel.h"

namespace ambrel {

class QuickTimer : public ambrel::FocusModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::TimerFace face READ face NOTIFY changed FINAL)

 public:
  explicit QuickTimer(FocusSeams seams, QObject* parent = nullptr) : FocusModel(std::move(seams), parent) {}

  const TimerFace& face() const { return face_; }

  Q_INVOKABLE void start(int seconds);
  // Also puts a finished timer away.
  Q_INVOKABLE void cancel();

  std::optional<Instant> due() const override { return timer_.endDate; }
  void tick(Instant now) override;
  void clockMoved(Seconds by, Instant now) override;

 private:
  bool renewFace(Instant now) override { return show(face_, timerFace(timer_, seams_.calendar, now)); }

  QuickTimerValue timer_;
  TimerFace face_;
};

}  // namespace ambrel
