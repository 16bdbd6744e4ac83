#pragma once
// The readings of the computer's parts that only their tiles ask for, and the parts that can be acted on.

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "app/telemetry/BluetoothModel.h"
#include "app/telemetry/KeepAwakeModel.h"
#include "app/telemetry/LiveRows.h"
#include "app/telemetry/LiveText.h"
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

// `tick` is called every 2 seconds. A sampler reads while a tile that shows it is on the bar and can be seen, or
// while somebody holds a need for it; otherwise its part is left alone.
class LiveModels : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::LiveText* gpu READ gpuText CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveText* pressure READ pressureText CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveText* diskActivity READ diskActivityText CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveText* topApps READ topAppsText CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveText* batteryHealth READ batteryHealthText CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveText* battery READ batteryText CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveText* power READ powerText CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveText* wifi READ wifiText CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveText* latency READ latencyText CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveText* volumes READ volumesText CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveText* thermal READ thermalText CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveText* address READ addressText CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveText* uptime READ uptimeText CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveText* display READ displayText CONSTANT FINAL)
  // The three busiest for the tile, and more for the panel.
  Q_PROPERTY(ambrel::LiveRows* topThree READ topThree CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveRows* topAppRows READ topAppRows CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveRows* latencyRows READ latencyRows CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveRows* wifiRows READ wifiRows CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveRows* powerRows READ powerRows CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveRows* volumeRows READ volumeRows CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveRows* addressRows READ addressRows CONSTANT FINAL)
  Q_PROPERTY(ambrel::BluetoothModel* bluetooth READ bluetooth CONSTANT FINAL)
  Q_PROPERTY(ambrel::SoundModel* sound READ sound CONSTANT FINAL)
  Q_PROPERTY(ambrel::KeepAwakeModel* keepAwake READ keepAwake CONSTANT FINAL)

 public:
  explicit LiveModels(LiveSeams seams, QObject* parent = nullptr);
  ~LiveModels() override;

  void tick(Instant now);
  // The widgets of the active profile, and whether they can be seen.
  void setShown(std::set<DockWidget> widgets, bool areActive, Instant now);
  // Keeps a sampler reading, tile or none, as long as the need is held: for rules, and for panels.
  using Need = std::shared_ptr<const Seconds>;
  [[nodiscard]] Need require(SamplerBase& sampler, Seconds interval);
  // Those that a panel may need, by the name of their function here; null for another name.
  SamplerBase* sampler(const QString& part);
  void setDisplay(const std::optional<DisplayReading>& display) { displayText_.set(displayTile(display)); }

  // Unmounts and powers down the drive with this row; the result is shown in the row.
  Q_INVOKABLE void eject(const QString& url);
  // That of the first row, which the tile shows.
  Q_INVOKABLE void ejectFirst();
  // Asks again now, whatever the rhythm.
  Q_INVOKABLE void refreshLatency();
  // The address to copy; empty while there is none.
  Q_INVOKABLE QString addressToCopy() const;
  // An eject came to an end, well or not; for what speaks of it beyond the row.
  std::function<void(const QString& name, const EjectResult& result)> onEjected;

  Sampler<double>& gpu() { return gpu_; }
  Sampler<PressureReading>& pressure() { return pressure_; }
  Sampler<DiskCounters, DiskRates>& diskActivity() { return diskActivity_; }
  Sampler<ProcessSnapshot, std::vector<ProcessUsage>>& topApps() { return topApps_; }
  Sampler<BatteryHealthReading>& batteryHealth() { return batteryHealth_; }
  Sampler<PowerReading>& power() { return power_; }
  Sampler<WiFiReading>& wifi() { return wifi_; }
  Sampler<LatencyCheck>& latency() { return latency_; }
  Sampler<std::vector<VolumeInfo>>& volumes() { return volumes_; }
  Sampler<ThermalReading>& thermal() { return thermal_; }
  Sampler<std::vector<NetworkAddress>>& addresses() { return addresses_; }

  LiveText* gpuText() { return &gpuText_; }
  LiveText* pressureText() { return &pressureText_; }
  LiveText* diskActivityText() { return &diskActivityText_; }
  LiveText* topAppsText() { return &topAppsText_; }
  LiveText* batteryHealthText() { return &batteryHealthText_; }
  LiveText* batteryText() { return &batteryText_; }
  LiveText* powerText() { return &powerText_; }
  LiveText* wifiText() { return &wifiText_; }
  LiveText* latencyText() { return &latencyText_; }
  LiveText* volumesText() { return &volumesText_; }
  LiveText* thermalText() { return &thermalText_; }
  LiveText* addressText() { return &addressText_; }
  LiveText* uptimeText() { return &uptimeText_; }
  LiveText* displayText() { return &displayText_; }
  LiveRows* topThree() { return &topThree_; }
  LiveRows* topAppRows() { return &topAppRows_; }
  LiveRows* latencyRows() { return &latencyRows_; }
  LiveRows* wifiRows() { return &wifiRows_; }
  LiveRows* powerRows() { return &powerRows_; }
  LiveRows* volumeRows() { return &volumeRows_; }
  LiveRows* addressRows() { return &addressRows_; }
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

  void follow(SamplerBase& sampler, std::vector<DockWidget> widgets, std::function<void()> publish);
  // In which rhythm the sampler is to read; absent when nobody asks for it.
  std::optional<Seconds> rhythm(Entry& entry) const;
  bool isOnBar(DockWidget widget) const { return widgets_.contains(widget); }
  Background gathered();
  void flush();
  void publishVolumes();
  void publishPower();
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
  BluetoothModel bluetooth_;
  SoundModel sound_;
  KeepAwakeModel keepAwake_;

  LiveText gpuText_, pressureText_, diskActivityText_, topAppsText_, batteryHealthText_, batteryText_, powerText_,
      wifiText_, latencyText_, volumesText_, thermalText_, addressText_, uptimeText_, displayText_;
  LiveRows topThree_, topAppRows_, latencyRows_, wifiRows_, powerRows_, volumeRows_, addressRows_;
};

}  // namespace ambrel
