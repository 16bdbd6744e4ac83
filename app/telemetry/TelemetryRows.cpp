#include "app/telemetry/TelemetryTexts.h"
#include "app/telemetry/TelemetryWords.h"

namespace ambrel {

using namespace words;

namespace {

QString milliseconds(const Calendar& calendar, double value) {
  return toQString(decimal(calendar, value, value < 9.95 ? 1 : 0)) + QStringLiteral(" ms");
}

}  // namespace

QString refusal(const EjectResult& result) {
  switch (result.outcome) {
    case EjectOutcome::ejected:
      return tr("May be unplugged");
    case EjectOutcome::busy:
      return tr("A program still uses it");
    case EjectOutcome::notPermitted:
      return tr("You are not allowed to eject it");
    case EjectOutcome::failed:
      break;
  }
  return result.reason.empty() ? tr("It could not be ejected") : oneLine(result.reason);
}

std::vector<LiveRow> processRows(const Calendar& calendar, const std::vector<ProcessUsage>& usage, std::size_t most) {
  std::vector<LiveRow> rows;
  for (const ProcessUsage& process : usage) {
    if (rows.size() == most) break;
    rows.push_back({.id = QString::number(process.pid),
                    .title = oneLine(process.name),
                    .detail = tr("Process %1").arg(process.pid),
                    .figure = coresText(calendar, process.cores),
                    .percent = process.cores * 100});
  }
  return rows;
}

std::vector<LiveRow> volumeRows(const Calendar& calendar, const std::vector<VolumeInfo>& volumes,
                                const Ejects& ejects) {
  std::vector<LiveRow> rows;
  for (const VolumeInfo& volume : volumes) {
    LiveRow row{.id = toQString(volume.url),
                .title = oneLine(volume.name),
                .detail = spaceText(calendar, volume),
                .symbol = QStringLiteral("externaldrive"),
                .percent = usedPercent(volume.usedBytes, volume.freeBytes),
                .hasAction = !volume.isRemote};
    if (const auto eject = ejects.find(volume.url); eject != ejects.end()) {
      row.isBusy = eject->second.isUnderWay;
      if (row.isBusy) {
        row.detail = tr("Ejecting…");
      } else if (eject->second.result) {
        row.detail = refusal(*eject->second.result);
        row.hasFailed = eject->second.result->outcome != EjectOutcome::ejected;
      }
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<LiveRow> addressRows(const std::vector<NetworkAddress>& addresses) {
  std::vector<LiveRow> rows;
  for (const NetworkAddress& address : addresses)
    rows.push_back({.id = toQString(address.text),
                    .title = toQString(address.text),
                    .detail = oneLine(address.interface),
                    .symbol = QStringLiteral("network")});
  return rows;
}

std::vector<LiveRow> latencyRows(const Calendar& calendar, const std::deque<LatencyCheck>& history) {
  std::vector<std::optional<double>> results;
  for (const LatencyCheck& check : history) results.push_back(check.milliseconds);
  const LatencyStats stats = LatencyStats::of(results);
  std::vector<LiveRow> rows;
  const auto add = [&](const char* id, const QString& title, const QString& figure) {
    rows.push_back({.id = QLatin1String(id), .title = title, .figure = figure});
  };
  if (stats.last) {
    add("last", tr("Last"), milliseconds(calendar, *stats.last));
    add("average", tr("Average"), milliseconds(calendar, stats.average));
    add("minimum", tr("Minimum"), milliseconds(calendar, stats.minimum));
    add("maximum", tr("Maximum"), milliseconds(calendar, stats.maximum));
    add("jitter", tr("Jitter"), milliseconds(calendar, stats.jitter));
  }
  if (!results.empty())
    add("failures", tr("Without an answer"), tr("%1 of %2").arg(stats.failures).arg(static_cast<int>(results.size())));
  return rows;
}

std::vector<LiveRow> wifiRows(const Calendar& calendar, const WiFiReading& wifi) {
  std::vector<LiveRow> rows;
  const auto add = [&](const char* id, const QString& title, const QString& figure) {
    rows.push_back({.id = QLatin1String(id), .title = title, .figure = figure});
  };
  if (!wifi.isConnected()) return rows;
  if (wifi.networkName) add("name", tr("Network"), oneLine(*wifi.networkName));
  add("rssi", tr("Signal (RSSI)"), dbm(calendar, wifi.rssi));
  if (wifi.noise) add("noise", tr("Noise"), dbm(calendar, *wifi.noise));
  if (const auto ratio = wifi.signalToNoise())
    add("snr", tr("Signal to noise (SNR)"), number(calendar, *ratio) + QStringLiteral(" dB"));
  if (wifi.megabitsPerSecond > 0)
    add("rate", tr("Link speed"), number(calendar, wifi.megabitsPerSecond) + QStringLiteral(" Mbit/s"));
  return rows;
}

}  // namespace ambrel
