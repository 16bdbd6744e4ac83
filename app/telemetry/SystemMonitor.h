#pragma once
// The readings of the whole computer: processor, memory, start-up volume, network.

#include <optional>

#include "app/base/Background.h"
#include "app/telemetry/LiveFace.h"
#include "core/base/Calendar.h"
#include "core/telemetry.h"
#include "platform/SystemReadings.h"

namespace ambrel {

// `tick` is called every 2 seconds. What could not be read stays unknown: nothing here is ever a made-up 0.
class SystemMonitor : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  // What their tiles show; `tip` has the sentence that there is only room for in wide ones.
  Q_PROPERTY(ambrel::LiveFace* cpu READ cpuFace CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveFace* memory READ memoryFace CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveFace* disk READ diskFace CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveFace* network READ networkFace CONSTANT FINAL)

 public:
  static constexpr Seconds tickInterval{2};
  // Of the histories: one minute of ticks.
  static constexpr std::size_t historyLength = 30;
  static constexpr Seconds diskInterval{60};

  SystemMonitor(const SystemReadings& readings, Background background, Calendar calendar, QObject* parent = nullptr);

  void tick();

  // What somebody looks at or decides by; the rest is not read, and unknown. At first everything is wanted.
  struct Wanted {
    bool memory = true;
    bool network = true;
    friend bool operator==(const Wanted&, const Wanted&) = default;
  };
  void setWanted(const Wanted& wanted);

  // 0 to 1.
  std::optional<double> cpuUsage() const { return cpuUsage_; }
  std::optional<MemoryReading> memory() const { return memory_; }
  std::optional<VolumeSizes> disk() const { return disk_; }
  std::optional<NetworkRates> network() const { return network_; }

  LiveFace* cpuFace() { return &cpuFace_; }
  LiveFace* memoryFace() { return &memoryFace_; }
  LiveFace* diskFace() { return &diskFace_; }
  LiveFace* networkFace() { return &networkFace_; }

 private:
  void forget();
  void forgetNetwork();
  void sampleProcessor();
  void sampleMemory();
  void sampleNetwork(Seconds at);
  void sampleDisk(Seconds at);
  void publishProcessor();
  void publishNetwork();

  const SystemReadings& readings_;
  Wanted wanted_;
  Background background_;
  Calendar calendar_;
  std::optional<double> cpuUsage_;
  std::optional<MemoryReading> memory_;
  std::optional<VolumeSizes> disk_;
  std::optional<NetworkRates> network_;
  History cpuHistory_{historyLength}, downloadHistory_{historyLength}, uploadHistory_{historyLength};
  LiveFace cpuFace_, memoryFace_, diskFace_, networkFace_;
  std::optional<Seconds> lastTick_;  // since boot
  std::optional<ProcessorTicks> lastTicks_;
  struct NetworkSample {
    NetworkCounters counters;
    Seconds at;
  };
  std::optional<NetworkSample> lastNetwork_;
  std::optional<Seconds> lastDiskSample_;  // since boot
  bool isReadingDisk_ = false;
};

}  // namespace ambrel
