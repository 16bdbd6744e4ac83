#include "app/telemetry/SystemMonitor.h"

#include <memory>
#include <thread>
#include <utility>

#include "app/base/QmlObjects.h"
#include "app/telemetry/TelemetryTexts.h"

namespace ambrel {

SystemMonitor::SystemMonitor(const SystemReadings& readings, Background background, Calendar calendar, QObject* parent)
    : QObject(parent), readings_(readings), background_(std::move(background)), calendar_(std::move(calendar)) {
  publishProcessor();
  memoryFace_.set(memoryTile(calendar_, memory_));
  diskFace_.set(diskTile(calendar_, disk_));
  publishNetwork();
  keep({&cpuFace_, &memoryFace_, &diskFace_, &networkFace_});
}

void SystemMonitor::tick() {
  const Seconds at = readings_.sinceBoot();
  if (lastTick_ && at - *lastTick_ > longestGap) forget();
  lastTick_ = at;
  sampleProcessor();
  if (wanted_.memory) sampleMemory();
  if (wanted_.network) sampleNetwork(at);
  sampleDisk(at);
}

void SystemMonitor::sampleProcessor() {
  const auto ticks = readings_.processor();
  if (ticks && lastTicks_) {
    // Two readings within one clock tick of the kernel say nothing; the last share stays.
    if (const auto usage = processorUsage(*lastTicks_, *ticks)) {
      cpuUsage_ = usage;
      cpuHistory_.append(*usage * 100);
    }
  }
  if (!ticks) cpuUsage_.reset();
  lastTicks_ = ticks;
  publishProcessor();
}

void SystemMonitor::sampleMemory() {
  memory_ = readings_.memory();
  memoryFace_.set(memoryTile(calendar_, memory_));
}

void SystemMonitor::setWanted(const Wanted& wanted) {
  if (wanted == wanted_) return;
  wanted_ = wanted;
  // What comes on the bar now need not wait for the next tick, as far as one reading tells anything.
  if (wanted.memory) {
    sampleMemory();
  } else {
    memory_.reset();
    memoryFace_.set(memoryTile(calendar_, memory_));
  }
  if (!wanted.network) forgetNetwork();
}

// The computer slept: older readings are not part of the last minute, and nothing is compared with them.
void SystemMonitor::forget() {
  lastTicks_.reset();
  cpuUsage_.reset();
  cpuHistory_ = History(historyLength);
  publishProcessor();
  forgetNetwork();
}

void SystemMonitor::forgetNetwork() {
  network_.reset();
  lastNetwork_.reset();
  downloadHistory_ = uploadHistory_ = History(historyLength);
  publishNetwork();
}

void SystemMonitor::sampleNetwork(Seconds at) {
  NetworkSample sample{readings_.network(), at};
  network_ = lastNetwork_ && !sample.counters.empty()
                 ? networkRates(lastNetwork_->counters, sample.counters, sample.at - lastNetwork_->at)
                 : std::nullopt;
  if (network_) {
    downloadHistory_.append(network_->receivedPerSecond);
    uploadHistory_.append(network_->sentPerSecond);
  }
  lastNetwork_ = std::move(sample);
  publishNetwork();
}

void SystemMonitor::sampleDisk(Seconds at) {
  if (isReadingDisk_ || (lastDiskSample_ && at - *lastDiskSample_ < diskInterval)) return;
  lastDiskSample_ = at;
  isReadingDisk_ = true;
  auto result = std::make_shared<std::optional<VolumeSizes>>();
  background_([&readings = readings_, result] { *result = readings.startUpVolume(); },
              [this, result] {
                isReadingDisk_ = false;
                disk_ = *result;
                diskFace_.set(diskTile(calendar_, disk_));
              });
}

void SystemMonitor::publishProcessor() {
  cpuFace_.set(
      processorTile(calendar_, cpuUsage_, cpuHistory_.values(), static_cast<int>(std::thread::hardware_concurrency())));
}

void SystemMonitor::publishNetwork() {
  networkFace_.set(networkTile(calendar_, network_, uploadHistory_.values(), downloadHistory_.values()));
}

}  // namespace ambrel
