#include "app/telemetry/TelemetryTexts.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>

#include "app/base/StoredValue.h"
#include "app/telemetry/TelemetryWords.h"
#include "core/base/LocalText.h"
#include "core/base/PlatformWords.h"

namespace ambrel {

using namespace words;

namespace {

QList<qreal> percentages(const std::deque<double>& shares) {
  QList<qreal> list;
  for (const double share : shares) list.append(share * 100);
  return list;
}

// "0.4", "23" and "ms", "1.2" and "s"
std::pair<QString, QString> span(const Calendar& calendar, double milliseconds) {
  if (milliseconds < 0.95) return {toQString(decimal(calendar, milliseconds, 1)), tr("ms")};
  if (milliseconds < 999.5) return {number(calendar, milliseconds), tr("ms")};
  return {toQString(decimal(calendar, milliseconds / 1000, 1)), tr("s")};
}

// Bytes a second that fill a chart. The few bytes of an idle network are drawn low.
constexpr double quietNetwork = 10'000;

}  // namespace

TileReading processorTile(const Calendar& calendar, std::optional<double> usage, const std::deque<double>& history,
                          int cores) {
  TileReading tile = measuring();
  tile.history = percentages(history);
  if (!usage) return tile;
  tile.value = number(calendar, *usage * 100);
  tile.unit = QStringLiteral("%");
  tile.subLine = cores == 1 ? tr("1 core") : tr("%1 cores").arg(cores);
  tile.tip = tr("Processor load: %1 %").arg(tile.value);
  tile.percent = std::round(*usage * 100);
  return tile;
}

TileReading memoryTile(const Calendar& calendar, const std::optional<MemoryReading>& memory) {
  if (!memory) return measuring();
  const double share = static_cast<double>(memory->usedBytes()) / static_cast<double>(memory->totalBytes);
  return {.value = number(calendar, share * 100),
          .unit = QStringLiteral("%"),
          .subLine = briefSize(calendar, memory->usedBytes()),
          .tip = tr("%1 of %2 in use").arg(size(calendar, memory->usedBytes()), size(calendar, memory->totalBytes)),
          .percent = share * 100};
}

TileReading diskTile(const Calendar& calendar, const std::optional<VolumeSizes>& disk) {
  if (!disk) return measuring();
  const auto free = static_cast<std::uint64_t>(disk->freeBytes), total = static_cast<std::uint64_t>(disk->totalBytes);
  return {.subLine = briefSize(calendar, free),
          .tip = tr("%1 of %2 free").arg(size(calendar, free), size(calendar, total)),
          .percent = usedPercent(disk->usedBytes, disk->freeBytes)};
}

TileReading networkTile(const Calendar& calendar, const std::optional<NetworkRates>& rates,
                        const std::deque<NetworkRates>& history) {
  TileReading tile = measuring();
  tile.ceiling = quietNetwork;
  for (const NetworkRates& past : history) {
    tile.history.append(past.sentPerSecond);
    tile.secondHistory.append(past.receivedPerSecond);
    tile.ceiling = std::max({tile.ceiling, past.sentPerSecond, past.receivedPerSecond});
  }
  tile.spoken = tr("measuring");
  if (rates) {
    const RateText up = rateText(calendar, rates->sentPerSecond), down = rateText(calendar, rates->receivedPerSecond);
    tile.value = toQString(up.figure);
    tile.unit = toQString(up.unit);
    tile.secondValue = toQString(down.figure);
    tile.secondUnit = toQString(down.unit);
    tile.subLine.clear();
    tile.spoken = tr("up %1 %2, down %3 %4").arg(tile.value, tile.unit, tile.secondValue, tile.secondUnit);
  }
  tile.tip = tr("Network: %1").arg(tile.spoken);
  return tile;
}

TileReading gpuTile(const Calendar& calendar, const Sampled<double>& gpu, const std::deque<double>& history) {
  const QString help = tr("Graphics processor load over the last 80 seconds");
  if (gpu.isUnavailable) return saying(tr("No GPU statistics"), tr("No data"), help);
  if (!gpu.value) return measuring();
  TileReading tile{.value = number(calendar, *gpu.value * 100),
                   .unit = QStringLiteral("%"),
                   .help = help,
                   .percent = *gpu.value * 100,
                   .history = percentages(history)};
  if (!history.empty()) tile.subLine = tr("max %1").arg(number(calendar, *std::ranges::max_element(history) * 100));
  return tile;
}

TileReading pressureTile(const Calendar& calendar, const Sampled<PressureReading>& pressure) {
  const QString help = toQString(
      "Memory pressure, as {activityMonitor} shows it. Swap is memory that {system} moved to the disk."_local);
  if (pressure.isUnavailable) return saying(tr("No memory statistics"), tr("No data"), help);
  if (!pressure.value) return measuring();
  const PressureReading& reading = *pressure.value;
  const QString swap = tr("Swap %1").arg(briefSize(calendar, reading.swapUsedBytes));
  TileReading tile{.subLine = swap, .help = help, .percent = (1 - reading.fraction) * 100};
  switch (reading.level) {
    case MemoryPressure::normal:
      tile.value = tr("Normal");
      break;
    case MemoryPressure::warning:
      tile.value = tr("Warning");
      tile.level = 1;
      break;
    case MemoryPressure::critical:
      tile.value = tr("Critical");
      tile.level = 2;
      break;
  }
  tile.tip = joined({tile.value, swap});
  return tile;
}

TileReading diskActivityTile(const Calendar& calendar, const Sampled<DiskRates>& rates) {
  const QString help = tr("Read (blue) and write (purple) speed of all disks");
  if (rates.isUnavailable) return saying(tr("No disk statistics"), tr("No data"), help);
  if (!rates.value) return measuring();
  const RateText read = rateText(calendar, rates.value->readPerSecond);
  const RateText written = rateText(calendar, rates.value->writePerSecond);
  return {.value = toQString(read.figure),
          .unit = toQString(read.unit),
          .secondValue = toQString(written.figure),
          .secondUnit = toQString(written.unit),
          .help = help,
          .spoken = tr("read %1 %2, written %3 %4")
                        .arg(toQString(read.figure), toQString(read.unit), toQString(written.figure),
                             toQString(written.unit))};
}

TileReading topAppsTile(const Calendar& calendar, const Sampled<std::vector<ProcessUsage>>& usage) {
  if (usage.isUnavailable) return saying(tr("No process statistics"), tr("No data"));
  if (!usage.value) return measuring();
  if (usage.value->empty()) return saying(tr("Nothing is busy"), tr("Quiet"));
  const ProcessUsage& first = usage.value->front();
  QStringList lines;
  for (std::size_t i = 0; i < std::min<std::size_t>(3, usage.value->size()); ++i)
    lines.append(oneLine((*usage.value)[i].name) + u' ' + coresText(calendar, (*usage.value)[i].cores));
  return {.value = coresText(calendar, first.cores), .subLine = oneLine(first.name), .tip = lines.join(u'\n')};
}

TileReading thermalTile(const Calendar& calendar, const Sampled<ThermalReading>& thermal) {
  const QString help = toQString(
      "The thermal state {system} reports. From Serious on, {system} slows the processor down to cool the {machine}."_local);
  if (thermal.isUnavailable) return saying(tr("No sensor found"), tr("None"), help);
  if (!thermal.value) return measuring();
  const ThermalReading& reading = *thermal.value;
  const QString state = thermalName(reading.level);
  const QString degrees = reading.celsius ? number(calendar, *reading.celsius) : QString();
  const QString warmth = degrees.isEmpty() ? QString() : degrees + QStringLiteral(" °C");
  const QString tip = joined({state, warmth});
  if (reading.level == ThermalLevel::serious || reading.level == ThermalLevel::critical)
    return {.message = tr("Slowing down to cool"),
            .shortMessage = warmth.isEmpty() ? state : warmth,
            .tip = tip,
            .help = help,
            .level = reading.level == ThermalLevel::critical ? 2 : 1};
  return {.value = degrees.isEmpty() ? state : degrees,
          .unit = degrees.isEmpty() ? QString() : QStringLiteral("°C"),
          .subLine = tr("Normal"),
          .tip = tip,
          .help = help};
}

TileReading latencyTile(const Calendar& calendar, const Sampled<LatencyCheck>& check,
                        const std::deque<LatencyCheck>& history) {
  const QString help = tr("Time to reach the internet, every 30 seconds");
  if (!check.value) return measuring();
  std::vector<std::optional<double>> results;
  TileReading tile{.help = help};
  for (const LatencyCheck& past : history) {
    results.push_back(past.milliseconds);
    tile.history.append(past.milliseconds.value_or(qQNaN()));
  }
  const LatencyStats stats = LatencyStats::of(results);
  if (!check.value->milliseconds) {
    tile.message = tr("No answer");
    tile.shortMessage = tr("Failed");
    tile.level = 2;
    tile.tip = tile.message;
    return tile;
  }
  const double last = *check.value->milliseconds;
  const auto [figure, unit] = span(calendar, last);
  tile.value = figure;
  tile.unit = unit;
  // Quick answers are low in the curve.
  tile.ceiling = std::max(100.0, stats.maximum);
  tile.level = std::max(0, LatencyStats::level(last) - 1);
  const auto [average, averageUnit] = span(calendar, stats.average);
  if (results.size() > 1) tile.subLine = tr("avg %1").arg(averageUnit == unit ? average : average + u' ' + averageUnit);
  if (stats.failures > 0) tile.tip = tr("%1 of %2 without an answer").arg(stats.failures).arg(results.size());
  return tile;
}

TileReading wifiTile(const Calendar& calendar, const Sampled<WiFiReading>& wifi) {
  if (wifi.isUnavailable) return saying(toQString("This {machine} has no Wi-Fi"_local), tr("No Wi-Fi"));
  if (!wifi.value) return measuring();
  const WiFiReading& reading = *wifi.value;
  if (!reading.isOn) return saying(tr("Wi-Fi is turned off"), tr("Off"));
  if (!reading.isConnected()) return saying(tr("Not connected"), tr("None"));
  const QString signal = dbm(calendar, reading.rssi);
  const QString noise = reading.signalToNoise() ? tr("SNR %1 dB").arg(*reading.signalToNoise()) : QString();
  const QString name = oneLine(reading.networkName.value_or(""));
  return {.value = name.isEmpty() ? tr("Connected") : name,
          .subLine = signal,
          .tip = joined({name, signal, noise}),
          .help = tr("Signal strength (RSSI) and signal to noise (SNR). 25 dB SNR or more is good for calls."),
          .percent = reading.bars() * 25,
          .level = reading.bars() <= 1 ? 1 : 0};
}

TileReading addressTile(const Sampled<std::vector<NetworkAddress>>& addresses) {
  if (!addresses.value && !addresses.isUnavailable) return measuring();
  if (!addresses.value || addresses.value->empty()) return saying(tr("Not connected"), tr("Offline"));
  const NetworkAddress& first = addresses.value->front();
  const QString text = toQString(first.text), interface = oneLine(first.interface);
  // In a narrow tile it breaks behind a dot or a colon.
  QString breakable = text;
  breakable.replace(u'.', QStringLiteral(".\u200b")).replace(u':', QStringLiteral(":\u200b"));
  return {.value = text, .subLine = interface, .shortMessage = breakable, .tip = text, .help = tr("Click to copy it")};
}

TileReading volumesTile(const Calendar& calendar, const Sampled<std::vector<VolumeInfo>>& volumes,
                        const Ejects& ejects) {
  const QString invitation = tr("Connect a drive to see it here");
  if (!volumes.value && !volumes.isUnavailable) return measuring();
  if (!volumes.value || volumes.value->empty()) return saying(tr("No external drives"), tr("None"), invitation);
  const VolumeInfo& first = volumes.value->front();
  const std::vector<LiveRow> rows = volumeRows(calendar, *volumes.value, ejects);
  const bool isAsUsual = !rows.front().isBusy && !rows.front().hasFailed;
  const QString free =
      first.totalBytes > 0 ? briefSize(calendar, static_cast<std::uint64_t>(first.freeBytes)) : QString();
  TileReading tile{.value = rows.front().title,
                   .subLine = isAsUsual && !free.isEmpty() ? tr("%1 free").arg(free) : rows.front().detail,
                   .fact = rows.size() > 1 ? QStringLiteral("+%1").arg(rows.size() - 1) : QString(),
                   .shortMessage = !free.isEmpty()  ? free
                                   : first.isRemote ? tr("Network")
                                                    : tr("Unknown"),
                   .isOn = rows.front().isBusy};
  // Without a share there is nothing to eject.
  if (!first.isRemote) tile.percent = rows.front().percent.value_or(0);
  QStringList lines;
  for (const LiveRow& row : rows) lines.append(joined({row.title, row.detail}));
  tile.tip = lines.join(u'\n');
  return tile;
}

TileReading uptimeTile(const Calendar& calendar, Seconds sinceBoot, Instant now) {
  if (sinceBoot.count() <= 0) return measuring();
  const auto minutes = static_cast<long long>(sinceBoot.count() / 60);
  const auto hours = minutes / 60, days = hours / 24;
  const QString text = days > 0    ? tr("%1 d %2 h").arg(days).arg(hours % 24)
                       : hours > 0 ? tr("%1 h %2 min").arg(hours).arg(minutes % 60)
                                   : tr("%1 min").arg(minutes);
  const Instant start = advanced(now, -sinceBoot);
  // The time alone on the day itself; within a week the weekday is enough.
  const bool isToday = calendar.dayKey(start) == calendar.dayKey(now);
  const std::string since = isToday    ? shortTime(calendar, start)
                            : days < 6 ? formattedDate(calendar, start, "EEEjmm")
                                       : formattedDate(calendar, start, "dMMM");
  return {.value = text,
          .subLine = tr("since %1").arg(toQString(since)),
          .shortMessage = days > 0    ? tr("%1 d").arg(days)
                          : hours > 0 ? tr("%1 h").arg(hours)
                                      : tr("%1 min").arg(minutes),
          .tip = tr("Started %1").arg(toQString(formattedDate(calendar, start, "EEEEdMMMMjmm")))};
}

TileReading displayTile(const std::optional<DisplayReading>& display) {
  if (!display) return saying(tr("No display"), tr("None"));
  const QString rate = toQString(DisplayText::refreshRate(display->refreshRate));
  const QString scale = toQString(DisplayText::scale(display->scale));
  const QString resolution = QStringLiteral("%1 × %2").arg(display->width).arg(display->height);
  return {.value = resolution,
          .subLine = rate + u' ' + scale,
          .shortMessage = resolution,
          .tip = joined({oneLine(display->name), resolution, rate, scale})};
}

}  // namespace ambrel
