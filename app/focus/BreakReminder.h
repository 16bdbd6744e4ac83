#pragma once

#include "app/focus/FocusModel.h"

namespace ambrel {

// One of the two reminders: to rest the eyes, or to stand up.
class BreakReminder : public ambrel::FocusModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::BreakFace face READ face NOTIFY changed FINAL)

 public:
  BreakReminder(BreakKind kind, FocusSeams seams, IsEnabled isEnabled, QObject* parent = nullptr);

  const BreakFace& face() const { return face_; }

  Q_INVOKABLE void setIsOn(bool on);
  Q_INVOKABLE void takeBreak();
  Q_INVOKABLE void endBreak();

  void reload() override;
  void tick(Instant now) override;
  void slept(Seconds span, Instant now) override;
  void clockMoved(Seconds by, Instant now) override;

 private:
  std::string key(const char* suffix) const;
  void load(Instant now);
  std::optional<Instant> nextChange() const override { return timer_.nextChange(); }
  bool renewFace(Instant now) override;

  IsEnabled isEnabled_;
  BreakTimer timer_;
  BreakTimer published_;
  BreakFace face_;
};

}  // namespace ambrel
