#pragma once
// The readings of the whole computer: processor, memory, start-up volume, network.

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <optional>
#include <thread>

#include "app/base/Background.h"
#include "core/base/Calendar.h"
#include "core/telemetry.h"
#include "platform/SystemReadings.h"

namespace ambrel {

// `tick` is called every 2 seconds. What could not be read stays unknown: nothing here is ever a made-up 0.
class SystemMonitor : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  // Percent, for rings and charts; not a number while unknown. Whole percents of the processor: nobody sees less.
  Q_PROPERTY(qreal cpuPercent READ cpuPercent NOTIFY cpuChanged)
  Q_PROPERTY(qreal memoryPercent READ memoryPercent NOTIFY memoryChanged)
  Q_PROPERTY(qreal diskPercent READ diskPercent NOTIFY diskChanged)
  Q_PROPERTY(QList<qreal> cpuHistory READ cpuHistory NOTIFY cpuHistoryChanged)
  Q_PROPERTY(QList<qreal> downloadHistory READ downloadHistory NOTIFY networkChanged)
  Q_PROPERTY(QList<qreal> uploadHistory READ uploadHistory NOTIFY networkChanged)
  // How many values a full history has.
  Q_PROPERTY(int historyCapacity READ historyCapacity CONSTANT)
  // The top of a chart that holds both histories of the network.
  Q_PROPERTY(qreal networkCeiling READ networkCeiling NOTIFY networkChanged)
  // As they are shown; "" while unknown.
  Q_PROPERTY(QString cpuText READ cpuText NOTIFY cpuChanged)
  Q_PROPERTY(QString memoryPercentText READ memoryPercentText NOTIFY memoryChanged)
  Q_PROPERTY(QString memoryText READ memoryText NOTIFY memoryChanged)
  Q_PROPERTY(QString diskText READ diskText NOTIFY diskChanged)
  // The same in a word: what is used, and what is free.
  Q_PROPERTY(QString memoryUsedText READ memoryUsedText NOTIFY memoryChanged)
  Q_PROPERTY(QString diskFreeText READ diskFreeText NOTIFY diskChanged)
  Q_PROPERTY(QString downloadFigure READ downloadFigure NOTIFY networkChanged)
  Q_PROPERTY(QString downloadUnit READ downloadUnit NOTIFY networkChanged)
  Q_PROPERTY(QString uploadFigure READ uploadFigure NOTIFY networkChanged)
  Q_PROPERTY(QString uploadUnit READ uploadUnit NOTIFY networkChanged)
  Q_PROPERTY(int coreCount READ coreCount CONSTANT)

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

  static int coreCount() { return static_cast<int>(std::thread::hardware_concurrency()); }
  qreal cpuPercent() const;
  qreal memoryPercent() const;
  qreal diskPercent() const;
  QList<qreal> cpuHistory() const;
  QList<qreal> downloadHistory() const;
  QList<qreal> uploadHistory() const;
  static int historyCapacity() { return static_cast<int>(historyLength); }
  qreal networkCeiling() const;
  QString cpuText() const;
  QString memoryPercentText() const;
  QString memoryText() const;
  QString diskText() const;
  QString memoryUsedText() const;
  QString diskFreeText() const;
  QString downloadFigure() const;
  QString downloadUnit() const;
  QString uploadFigure() const;
  QString uploadUnit() const;

 Q_SIGNALS:
  void cpuChanged();
  void cpuHistoryChanged();
  void memoryChanged();
  void networkChanged();
  void diskChanged();

 private:
  void forget();
  void forgetNetwork();
  QString percentText(qreal percent) const;
  void sampleProcessor();
  void sampleMemory();
  void sampleNetwork(Seconds at);
  void sampleDisk(Seconds at);

  const SystemReadings& readings_;
  Wanted wanted_;
  Background background_;
  Calendar calendar_;
  std::optional<double> cpuUsage_;
  std::optional<MemoryReading> memory_;
  std::optional<VolumeSizes> disk_;
  std::optional<NetworkRates> network_;
  History cpuHistory_{historyLength}, downloadHistory_{historyLength}, uploadHistory_{historyLength};
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
