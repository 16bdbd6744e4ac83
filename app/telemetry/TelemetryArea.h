#pragma once
// The computer's parts: when they are read, what their tiles do, and what Buddy's rules see of them.

#include "app/base/Area.h"
#include "app/telemetry/LiveModels.h"

namespace ambrel {

class TelemetryArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::LiveModels* readings READ live CONSTANT FINAL)
  Q_PROPERTY(ambrel::BluetoothModel* bluetooth READ bluetooth CONSTANT FINAL)
  Q_PROPERTY(ambrel::SoundModel* sound READ sound CONSTANT FINAL)
  Q_PROPERTY(ambrel::KeepAwakeModel* keepAwake READ keepAwake CONSTANT FINAL)

 public:
  TelemetryArea(LiveSeams seams, Shell& shell, QObject* parent = nullptr);

  LiveModels* live() { return &live_; }
  BluetoothModel* bluetooth() { return live_.bluetooth(); }
  SoundModel* sound() { return live_.sound(); }
  KeepAwakeModel* keepAwake() { return live_.keepAwake(); }
  // What the tile of the widget shows.
  Q_INVOKABLE ambrel::LiveFace* face(const QString& widget);

  void widgetsChanged(const std::set<DockWidget>& onBar, bool areSeen, Instant now) override;
  QVariantMap sample(DockWidget widget) override;
  void tick(Instant now) override { live_.tick(now); }
  void addSignals(BuddySignals& signals, Instant now) override;

 private:
  void followMainDisplay();

  Shell& shell_;
  PresentCalendar calendar_;
  LiveModels live_;
  // The processor's chart and Buddy's rules need these all the time, and charts also while the bar is hidden.
  LiveModels::Need processorNeed_, diskNeed_, memoryNeed_, networkNeed_;
  LiveModels::Need batteryNeed_, busiestNeed_;  // of Buddy's rules, once they ask
};

}  // namespace ambrel
