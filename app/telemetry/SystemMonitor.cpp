#include "app/telemetry/SystemMonitor.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <utility>

#include "core/base/LocalText.h"

namespace ambrel {
namespace {

// Bytes a second that fill a chart: what little a network at rest carries is drawn as little.
constexpr double quietNetwork = 10'000;
constexpr qreal unknown = std::numeric_limits<qreal>::quiet_NaN();

QList<qreal> list(const History& history) {
  QList<qreal> out;
  for (const double value : history.values()) out.append(value);
  return out;
}

}  // namespace

SystemMonitor::SystemMonitor(const SystemReadings& readings, Background background, Calendar calendar, QObject* parent)
    : QObject(parent), readings_(readings), background_(std::move(background)), calendar_(std::move(calendar)) {}

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
  const auto percent = [this] { return cpuUsage_ ? std::optional(std::lround(*cpuUsage_ * 100)) : std::nullopt; };
  const auto before = percent();
  const auto ticks = readings_.processor();
  if (ticks && lastTicks_) {
    // Two readings within one clock tick of the kernel say nothing; the last share stands.
    if (const auto usage = processorUsage(*lastTicks_, *ticks)) {
      cpuUsage_ = usage;
      cpuHistory_.append(*usage * 100);
      Q_EMIT cpuHistoryChanged();
    }
  }
  if (!ticks) cpuUsage_.reset();
  lastTicks_ = ticks;
  if (percent() != before) Q_EMIT cpuChanged();
}

void SystemMonitor::sampleMemory() {
  const auto before = std::exchange(memory_, readings_.memory());
  if (memory_ != before) Q_EMIT memoryChanged();
}

void SystemMonitor::setWanted(const Wanted& wanted) {
  if (wanted == wanted_) return;
  wanted_ = wanted;
  // What comes on the bar now need not wait for the next tick, as far as one reading tells anything.
  if (wanted.memory) {
    sampleMemory();
  } else {
    memory_.reset();
    Q_EMIT memoryChanged();
  }
  if (!wanted.network) forgetNetwork();
}

// The computer slept: readings from before are no part of the last minute and are not compared with.
void SystemMonitor::forget() {
  lastTicks_.reset();
  cpuUsage_.reset();
  cpuHistory_ = History(historyLength);
  Q_EMIT cpuChanged();
  Q_EMIT cpuHistoryChanged();
  forgetNetwork();
}

void SystemMonitor::forgetNetwork() {
  network_.reset();
  lastNetwork_.reset();
  downloadHistory_ = uploadHistory_ = History(historyLength);
  Q_EMIT networkChanged();
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
  Q_EMIT networkChanged();
}

void SystemMonitor::sampleDisk(Seconds at) {
  if (isReadingDisk_ || (lastDiskSample_ && at - *lastDiskSample_ < diskInterval)) return;
  lastDiskSample_ = at;
  isReadingDisk_ = true;
  auto result = std::make_shared<std::optional<VolumeSizes>>();
  background_([&readings = readings_, result] { *result = readings.startUpVolume(); },
              [this, result] {
                isReadingDisk_ = false;
                if (disk_ == *result) return;
                disk_ = *result;
                Q_EMIT diskChanged();
              });
}

qreal SystemMonitor::cpuPercent() const { return cpuUsage_ ? std::round(*cpuUsage_ * 100) : unknown; }

qreal SystemMonitor::memoryPercent() const {
  return memory_ ? 100.0 * static_cast<qreal>(memory_->usedBytes()) / static_cast<qreal>(memory_->totalBytes) : unknown;
}

qreal SystemMonitor::diskPercent() const {
  return disk_ ? usedPercent(disk_->usedBytes, disk_->freeBytes).value_or(unknown) : unknown;
}

QList<qreal> SystemMonitor::cpuHistory() const { return list(cpuHistory_); }
QList<qreal> SystemMonitor::downloadHistory() const { return list(downloadHistory_); }
QList<qreal> SystemMonitor::uploadHistory() const { return list(uploadHistory_); }

qreal SystemMonitor::networkCeiling() const {
  double ceiling = quietNetwork;
  for (const History* history : {&downloadHistory_, &uploadHistory_})
    for (const double rate : history->values()) ceiling = std::max(ceiling, rate);
  return ceiling;
}

QString SystemMonitor::percentText(qreal percent) const {
  return std::isnan(percent)
             ? QString()
             : QString::fromStdString(decimal(calendar_, std::round(percent), 0)) + QStringLiteral(" %");
}

QString SystemMonitor::cpuText() const { return percentText(cpuPercent()); }
QString SystemMonitor::memoryPercentText() const { return percentText(memoryPercent()); }

QString SystemMonitor::memoryText() const {
  if (!memory_) return {};
  return QStringLiteral("%1 of %2 in use")
      .arg(QString::fromStdString(fileSize(calendar_, static_cast<std::int64_t>(memory_->usedBytes()))),
           QString::fromStdString(fileSize(calendar_, static_cast<std::int64_t>(memory_->totalBytes))));
}

QString SystemMonitor::diskText() const {
  if (!disk_) return {};
  return QStringLiteral("%1 of %2 free")
      .arg(QString::fromStdString(fileSize(calendar_, disk_->freeBytes)),
           QString::fromStdString(fileSize(calendar_, disk_->totalBytes)));
}

QString SystemMonitor::memoryUsedText() const {
  return memory_ ? QString::fromStdString(briefFileSize(calendar_, static_cast<std::int64_t>(memory_->usedBytes())))
                 : QString();
}

QString SystemMonitor::diskFreeText() const {
  return disk_ ? QString::fromStdString(briefFileSize(calendar_, disk_->freeBytes)) : QString();
}

QString SystemMonitor::downloadFigure() const {
  return network_ ? QString::fromStdString(rateText(calendar_, network_->receivedPerSecond).figure) : QString();
}

QString SystemMonitor::downloadUnit() const {
  return network_ ? QString::fromStdString(rateText(calendar_, network_->receivedPerSecond).unit) : QString();
}

QString SystemMonitor::uploadFigure() const {
  return network_ ? QString::fromStdString(rateText(calendar_, network_->sentPerSecond).figure) : QString();
}

QString SystemMonitor::uploadUnit() const {
  return network_ ? QString::fromStdString(rateText(calendar_, network_->sentPerSecond).unit) : QString();
}

}  // namespace ambrel
