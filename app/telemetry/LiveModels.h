#pragma once
// The readings of the computer's parts, and the parts that can be acted on.

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "app/telemetry/BluetoothModel.h"
#include "app/telemetry/KeepAwakeModel.h"
#include "app/telemetry/LiveFace.h"
#include "app/telemetry/Sampler.h"
#include "app/telemetry/SoundModel.h"
#include "app/telemetry/TelemetryTexts.h"
#include "core/base/PresentCalendar.h"
#include "core/widgets/DockWidget.h"
#include "platform/LatencyProbe.h"
#include "platform/SystemReadings.h"
#include "platform/Telemetry.h"
#include "platform/Volumes.h"

namespace ambrel {

// What is asked; all of it outlives the models.
struct LiveSeams {
  Telemetry& telemetry;
  LatencyProbe& latency;
  SoundControl& sound;
  Bluetooth& bluetooth;
  Volumes& volumes;
  KeepAwake& keepAwake;
  const SystemReadings& readings;
  Background background;
  PresentCalendar calendar;
  std::function<Instant()> now;
};

struct NetworkSample {
  NetworkCounters counters;
  Seconds at;  // since boot
};

// Every `tickInterval` `tick` is called. A sampler reads while a visible tile shows it or a need for it is held.
class LiveModels : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  // The busiest programs; the tile has the first three in its face.
  Q_PROPERTY(ambrel::RowList* processes READ processes CONSTANT FINAL)
  // The volume that the system starts from.
  Q_PROPERTY(ambrel::LiveFace* disk READ diskFace CONSTANT FINAL)

 public:
  static constexpr Seconds tickInterval{2};

  explicit LiveModels(LiveSeams seams, QObject* parent = nullptr);
  ~LiveModels() override;

  void tick(Instant now);
  // The widgets of the active profile, and whether they can be seen.
  void setShown(std::set<DockWidget> widgets, bool areActive, Instant now);
  // Keeps a sampler reading, tile or none, as long as the need is held: for rules, and for panels.
  using Need = std::shared_ptr<const Seconds>;
  [[nodiscard]] Need require(SamplerBase& sampler, Seconds interval);
  // The one that the widget shows; null for one that shows none.
  SamplerBase* samplerOf(DockWidget widget);
  // What the widget's tile shows, and the list of its panel.
  LiveFace& face(DockWidget widget);
  LiveFace* diskFace() { return &face(DockWidget::disk); }
  RowList* processes() { return &processes_; }
  void setDisplay(const std::optional<DisplayReading>& display);

  // Unmounts and powers down the drive of this row; the row says how it went.
  Q_INVOKABLE void eject(const QString& url);
  // That of the first row, which the tile shows.
  Q_INVOKABLE void ejectFirst();
  // Asks now, without waiting for the interval.
  Q_INVOKABLE void refreshLatency();
  // The address to copy; empty while there is none.
  Q_INVOKABLE QString addressToCopy() const;
  // An eject has ended, well or not.
  std::function<void(const QString& name, const EjectResult& result)> onEjected;

  Sampler<ProcessorTicks, double>& processor() { return processor_; }
  Sampler<MemoryReading>& memory() { return memory_; }
  Sampler<NetworkSample, NetworkRates>& network() { return network_; }
  Sampler<VolumeSizes>& startUpVolume() { return startUpVolume_; }
  Sampler<ProcessSnapshot, std::vector<ProcessUsage>>& topApps() { return topApps_; }
  Sampler<PowerReading>& power() { return power_; }

  BluetoothModel* bluetooth() { return &bluetooth_; }
  SoundModel* sound() { return &sound_; }
  KeepAwakeModel* keepAwake() { return &keepAwake_; }

 private:
  // A sampler, the widgets that show it, and who else needs it.
  struct Entry {
    SamplerBase* sampler;
    std::vector<DockWidget> widgets;
    std::vector<std::weak_ptr<const Seconds>> needs;
  };

  // The interval at which the sampler has to read; absent while it is not wanted.
  std::optional<Seconds> rhythm(Entry& entry) const;
  bool isOnBar(DockWidget widget) const { return widgets_.contains(widget); }
  Background gathered();
  void flush();
  void publishVolumes();
  void publishPower(const Calendar& calendar);
  void noticeBattery();
  void publishUptime(Instant now);

  LiveSeams seams_;
  std::set<DockWidget> widgets_;
  bool areActive_ = false;
  std::vector<Entry> entries_;
  // Reads of one tick that are quick run as one piece of work.
  std::vector<std::pair<std::function<void()>, std::function<void()>>> gathered_;
  Ejects ejects_;
  std::optional<long long> uptimeMinutes_;
  std::string uptimeZone_;
  std::optional<bool> hadBattery_;  // at the last reading of the power

  Sampler<ProcessorTicks, double> processor_;
  Sampler<MemoryReading> memory_;
  Sampler<NetworkSample, NetworkRates> network_;
  Sampler<VolumeSizes> startUpVolume_;
  Sampler<double> gpu_;
  Sampler<PressureReading> pressure_;
  Sampler<DiskCounters, DiskRates> diskActivity_;
  Sampler<ProcessSnapshot, std::vector<ProcessUsage>> topApps_;
  Sampler<BatteryHealthReading> batteryHealth_;
  Sampler<PowerReading> power_;
  Sampler<WiFiReading> wifi_;
  Sampler<LatencyCheck> latency_;
  Sampler<std::vector<VolumeInfo>> volumes_;
  Sampler<ThermalReading> thermal_;
  Sampler<std::vector<NetworkAddress>> addresses_;
  std::map<DockWidget, LiveFace> faces_;
  GadgetListModel<LiveRow> processes_;
  BluetoothModel bluetooth_;
  SoundModel sound_;
  KeepAwakeModel keepAwake_;
};

}  // namespace ambrel
