#pragma once

#include <QtQml/qqmlregistration.h>

#include "app/base/TimedModel.h"
#include "app/focus/FocusFaces.h"
#include "app/focus/FocusSeams.h"

namespace ambrel {

// Glasses of water by the day, and the reminder of the next.
class WaterTracker : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::WaterFace face READ face NOTIFY changed FINAL)

 public:
  WaterTracker(FocusSeams seams, IsEnabled isEnabled, QObject* parent = nullptr);

  const WaterFace& face() const { return face_; }
  // When the next glass is due, for others that remind; absent without reminders, and where they are not wanted.
  std::optional<Instant> waterDueAt(Instant now) const;

  Q_INVOKABLE void add();
  Q_INVOKABLE void remove();
  Q_INVOKABLE void setGoal(int glasses);
  Q_INVOKABLE void setIntervalMinutes(int minutes);
  Q_INVOKABLE void setRemindersOn(bool on);

  // The defaults have been changed by others.
  void reload();
  std::optional<Instant> due() const override { return earlier(water_.reminder, dayEnds_); }
  void tick(Instant now) override;
  void clockMoved(Seconds by, Instant now) override;

 Q_SIGNALS:
  void changed();

 private:
  // The reminder that was posted does not hold any more, and another one is waited for.
  void acted(Instant now);
  void load();
  void publish(Instant now);

  FocusSeams seams_;
  IsEnabled isEnabled_;
  Water water_;
  WaterFace face_;
  Instant dayEnds_;
};

}  // namespace ambrel
