#pragma once
// The computer's parts: when they are read, what their tiles do, and what Buddy's rules see of them.

#include "app/base/Area.h"
#include "app/telemetry/LiveModels.h"
#include "app/telemetry/SystemMonitor.h"

namespace ambrel {

class TelemetryArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::SystemMonitor* system READ system CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveModels* readings READ live CONSTANT FINAL)
  Q_PROPERTY(ambrel::BluetoothModel* bluetooth READ bluetooth CONSTANT FINAL)
  Q_PROPERTY(ambrel::SoundModel* sound READ sound CONSTANT FINAL)
  Q_PROPERTY(ambrel::KeepAwakeModel* keepAwake READ keepAwake CONSTANT FINAL)

 public:
  TelemetryArea(LiveSeams seams, Background background, Shell& shell, QObject* parent = nullptr);

  SystemMonitor* system() { return &system_; }
  LiveModels* live() { return &live_; }
  BluetoothModel* bluetooth() { return live_.bluetooth(); }
  SoundModel* sound() { return live_.sound(); }
  KeepAwakeModel* keepAwake() { return live_.keepAwake(); }
  // What the tile of the widget shows.
  Q_INVOKABLE ambrel::LiveFace* face(const QString& widget);

  void widgetsChanged(const std::set<DockWidget>& onBar, bool areSeen, Instant now) override;
  void tick(Instant now) override;
  void addSignals(BuddySignals& signals, Instant now) override;

 private:
  void followMainDisplay();

  Shell& shell_;
  SystemMonitor system_;
  LiveModels live_;
  LiveModels::Need batteryNeed_, busiestNeed_;  // of Buddy's rules, once they ask
};

}  // namespace ambrel
