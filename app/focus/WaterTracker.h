#pragma once

#include "app/focus/FocusModel.h"

namespace ambrel {

// Glasses of water by the day, and the reminder of the next.
class WaterTracker : public ambrel::FocusModel {
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

  void reload() override;
  void tick(Instant now) override;
  void clockMoved(Seconds by, Instant now) override;

 private:
  // The reminder that was posted does not hold any more, and another one is waited for.
  void acted(Instant now);
  void load();
  std::optional<Instant> nextChange() const override { return water_.reminder; }
  bool renewFace(Instant now) override { return show(face_, waterFace(water_, seams_.calendar, now)); }

  IsEnabled isEnabled_;
  Water water_;
  WaterFace face_;
};

}  // namespace ambrel
