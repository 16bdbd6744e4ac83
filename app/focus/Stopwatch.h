#pragma once

#include "app/focus/FocusModel.h"

namespace ambrel {

class Stopwatch : public ambrel::FocusModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::StopwatchFace face READ face NOTIFY changed FINAL)

 public:
  explicit Stopwatch(FocusSeams seams, QObject* parent = nullptr) : FocusModel(std::move(seams), parent) { update(); }

  const StopwatchFace& face() const { return face_; }

  Q_INVOKABLE void toggle();
  Q_INVOKABLE void reset();

  std::optional<Instant> due() const override { return std::nullopt; }
  void clockMoved(Seconds by, Instant now) override;

 private:
  bool renewFace(Instant now) override { return show(face_, stopwatchFace(watch_, now)); }

  StopwatchValue watch_;
  StopwatchFace face_;
};

}  // namespace ambrel
