#include <functional>
#include <map>

#include "app/telemetry/TelemetryArea.h"

namespace ambrel {
namespace {

using enum DockWidget;

constexpr std::int64_t gigabyte = 1'000'000'000;

const std::deque<double> loads{.12, .14, .11, .2, .32, .24, .18, .42, .55, .31, .22, .23};

// By the texts of real readings.
const std::map<DockWidget, std::function<TileReading(const Calendar&)>> samples{
    {cpu, [](const Calendar& c) { return processorTile(c, .23, loads, 8); }},
    {cpuChart, [](const Calendar& c) { return processorTile(c, .23, loads, 8); }},
    {gpu, [](const Calendar& c) { return gpuTile(c, {.value = .31}, loads); }},
    {memory,
     [](const Calendar& c) {
       return memoryTile(c, MemoryReading{.totalBytes = 16 * gigabyte, .availableBytes = 67 * gigabyte / 10});
     }},
    {memoryPressure, [](const Calendar& c) { return pressureTile(c, {.value = PressureReading{.fraction = .58}}); }},
    {network,
     [](const Calendar& c) {
       return networkTile(c, NetworkRates{8.4e6, 1.2e6}, {{2e6, 4e5}, {6e6, 9e5}, {8.4e6, 1.2e6}});
     }},
    {networkChart,
     [](const Calendar& c) {
       std::deque<NetworkRates> rates;
       for (const double load : loads) rates.push_back({load * 1.6e7, load * 4e6});
       return networkTile(c, NetworkRates{8.4e6, 1.2e6}, rates);
     }},
    {diskActivity,
     [](const Calendar& c) {
       return diskActivityTile(c, {.value = DiskRates{3.1e7, 8.4e6}});
     }},
    {topApps,
     [](const Calendar& c) {
       return topAppsTile(c, {.value = std::vector<ProcessUsage>{{.pid = 1, .name = "firefox", .cores = .42}}});
     }},
    {thermal, [](const Calendar& c) { return thermalTile(c, {.value = ThermalReading{.celsius = 52}}); }},
    {latency,
     [](const Calendar& c) {
       std::deque<LatencyCheck> checks;
       for (const double load : loads) checks.push_back({12 + load * 20});
       return latencyTile(c, {.value = checks.back()}, checks);
     }},
    {wifi,
     [](const Calendar& c) {
       return wifiTile(c, {.value = WiFiReading{.isOn = true, .rssi = -54, .noise = -92, .networkName = "Home"}});
     }},
    {ipAddress,
     [](const Calendar&) {
       return addressTile(
           {.value = std::vector<NetworkAddress>{{.interface = "wlan0", .text = "192.168.1.20", .isDefault = true}}});
     }},
    {battery, [](const Calendar& c) { return batteryTile(c, {.value = PowerReading{.percent = 84}}); }},
    {power,
     [](const Calendar& c) { return powerTile(c, {.value = PowerReading{.percent = 84, .minutesToEmpty = 312}}); }},
    {batteryHealth,
     [](const Calendar& c) {
       return batteryHealthTile(
           c, {.value = BatteryHealthReading{BatteryHealth{.cycleCount = 212, .maximumCapacity = 91}}});
     }},
    {volume, [](const Calendar& c) { return volumeTile(c, SoundLevel{.volume = .6}); }},
    {micMute, [](const Calendar&) { return microphoneTile(SoundLevel{.volume = .8}); }},
    {bluetooth,
     [](const Calendar& c) {
       return bluetoothTile(
           c,
           BluetoothReading{true, {{.id = "1", .name = "Headphones", .icon = "audio-headset", .batteryPercent = 70}}});
     }},
    {uptime,
     [](const Calendar& c) {
       return uptimeTile(c, std::chrono::hours{76}, Instant{std::chrono::sys_days{std::chrono::days{20'000}}});
     }},
    {volumes,
     [](const Calendar& c) {
       return volumesTile(c,
                          {.value = std::vector<VolumeInfo>{{.url = "file:///media/backup",
                                                             .name = "Backup",
                                                             .freeBytes = 320 * gigabyte,
                                                             .totalBytes = 1000 * gigabyte,
                                                             .usedBytes = 680 * gigabyte}}},
                          {});
     }},
};

}  // namespace

QVariantMap TelemetryArea::sample(DockWidget widget) {
  const auto found = samples.find(widget);
  if (found == samples.end()) return {};
  return {{QStringLiteral("reading"), QVariant::fromValue(found->second(calendar_()))}};
}

}  // namespace ambrel
