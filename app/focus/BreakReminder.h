#pragma once

#include <QtQml/qqmlregistration.h>

#include "app/base/TimedModel.h"
#include "app/focus/FocusFaces.h"
#include "app/focus/FocusSeams.h"

namespace ambrel {

// One of the two reminders: to rest the eyes, or to stand up.
class BreakReminder : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::BreakFace face READ face NOTIFY changed FINAL)

 public:
  BreakReminder(BreakKind kind, FocusSeams seams, IsEnabled isEnabled, QObject* parent = nullptr);

  const BreakFace& face() const { return face_; }

  Q_INVOKABLE void setIsOn(bool on);
  Q_INVOKABLE void setIntervalMinutes(int minutes);
  Q_INVOKABLE void takeBreak();
  Q_INVOKABLE void endBreak();
  // Brings the countdown up to date, while somebody looks.
  Q_INVOKABLE void update() { publish(seams_.now()); }

  // The defaults have been changed by others.
  void reload();
  std::optional<Instant> due() const override { return earlier(timer_.nextChange(), dayEnds_); }
  void tick(Instant now) override;
  void slept(Seconds span, Instant now) override;
  void clockMoved(Seconds by, Instant now) override;

 Q_SIGNALS:
  void changed();

 private:
  std::string key(const char* suffix) const;
  void load(Instant now);
  void publish(Instant now);

  FocusSeams seams_;
  IsEnabled isEnabled_;
  BreakTimer timer_;
  BreakTimer published_;
  BreakFace face_;
  Instant dayEnds_;
};

}  // namespace ambrel
